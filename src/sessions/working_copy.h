#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>

namespace triaxlab {

/// What a person works on until it is accepted or dropped, with all steps back and forth. A change that changes nothing
/// is no step.
template <class Work>
class WorkingCopy {
 public:
  explicit WorkingCopy(Work work) : m_work(std::move(work)) {}

  const Work& operator*() const { return m_work; }
  const Work* operator->() const { return &m_work; }

  /// `joined`: part of the step before it, as the moves of one drag are.
  enum class Step : std::uint8_t { New, Joined };
  /// Runs `edit` on the work. Returns whether it changed anything.
  template <class Edit>
  bool change(const Edit& edit, Step step = Step::New) {
    Work before = m_work;
    edit(m_work);
    if (m_work == before) return false;
    m_undone.clear();
    if (step == Step::Joined) return true;
    m_done.push_back(std::move(before));
    if (m_done.size() > kMostSteps) m_done.pop_front();
    return true;
  }
  /// A choice that isn't undone by itself.
  template <class Edit>
  void choose(const Edit& edit) {
    edit(m_work);
  }

  bool undo() { return step(m_done, m_undone); }
  bool redo() { return step(m_undone, m_done); }

 private:
  static constexpr std::size_t kMostSteps = 1000;

  bool step(std::deque<Work>& from, std::deque<Work>& to) {
    if (from.empty()) return false;
    to.push_back(std::exchange(m_work, std::move(from.back())));
    from.pop_back();
    return true;
  }

  Work m_work;
  std::deque<Work> m_done, m_undone;  // what the work was before a step, and before it was undone
};

}  // namespace triaxlab
