#include "cli/record_json.h"

#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "common/field_sink.h"
#include "common/gbk.h"
#include "common/text_number.h"
#include "shell/document_kinds.h"
#include "store/project/header_fields.h"

namespace triaxlab::cli {
namespace {

using Json = nlohmann::ordered_json;

/// The double that the float's shortest digits read as, since JSON knows doubles alone: 0.2 and not 0.20000000298.
double shortest(float value) {
  std::array<char, 32> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return ParseNumber({digits.data(), written.ptr});
}

/// Puts the fields of records into an object.
class JsonFields final : public FieldSink {
 public:
  explicit JsonFields(Json& object) : m_object(object) {}

  void name(std::string_view member) override { m_name = member; }
  void text(std::string_view gbk) override { put(jsonText(gbk)); }
  void number(std::int64_t value) override { put(value); }
  void number(float value) override { put(std::isfinite(value) ? Json(shortest(value)) : Json(nullptr)); }
  void number(double value) override { put(std::isfinite(value) ? Json(value) : Json(nullptr)); }
  void beginArray() override { m_open.push_back(Json::array()); }
  void endArray() override {
    Json array = std::move(m_open.back());
    m_open.pop_back();
    put(std::move(array));
  }

 private:
  void put(Json value) {
    if (m_open.empty())
      m_object[m_name] = std::move(value);
    else
      m_open.back().push_back(std::move(value));
  }

  Json& m_object;
  std::string m_name;
  std::vector<Json> m_open;  // arrays, the innermost last
};

}  // namespace

std::string jsonText(std::string_view gbk) {
  const auto last = gbk.find_last_not_of(' ');
  return gbkToUtf8(gbk.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

Json jsonOf(const ProjectHeader& header) {
  Json object;
  JsonFields fields(object);
  tellFields(header, fields);
  return object;
}

Json jsonOf(std::size_t fileRow, const Workspace& workspace, ProjectKind kind, std::size_t row) {
  Json object;
  object["row"] = fileRow;
  JsonFields fields(object);
  const ProjectKindInfo& info = infoOf(kind);
  info.tellFields(info.table.record(workspace, row), fields);
  if (const auto tellDerived = documentOfTests(kind).tellDerived) tellDerived(workspace, row, fields);
  const SampleLocation& location = workspace.dataOf(kind).SampleDisplayTable[row];
  // A K0 record has a depth of its own, which stands already.
  object.emplace("boreholeNo", jsonText(location.boreholeNo.view()));
  object.emplace("samplingDepth", jsonText(location.samplingDepth.view()));
  object.emplace("samplingSpot", jsonText(location.samplingSpot.view()));
  return object;
}

}  // namespace triaxlab::cli
