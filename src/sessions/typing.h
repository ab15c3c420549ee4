#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "common/gbk.h"
#include "sessions/editable_field.h"
#include "sessions/typed_text.h"

namespace triaxlab {

/// What a person is typing, and into which of a window's inputs. It is stored at each key, in the form that the field
/// gives it; the input itself shows what was taken of the typing until that is at an end.
template <class Input>
class Typing {
 public:
  /// The input now holds this text (UTF-8). False when the field took nothing of it: bytes that are no GBK then stay as
  /// they came.
  bool type(Input input, const EditableField& field, std::string_view utf8) {
    const std::string taken = takenText(utf8, field.width);
    std::string shownText = gbkToUtf8(taken);
    if (shownText == shown(input, field.text)) return false;
    field.store(taken);
    m_typed = {input, std::move(shownText)};
    return true;
  }
  /// What the input shows of a text that is stored, UTF-8.
  std::string shown(Input input, std::string_view gbkStored) const {
    return m_typed && m_typed->input == input ? m_typed->text : gbkToUtf8(gbkStored);
  }
  void finish() { m_typed.reset(); }

 private:
  struct TypedInput {
    Input input;
    std::string text;
  };
  std::optional<TypedInput> m_typed;
};

}  // namespace triaxlab
