#include "cli/defs_dump.h"

#include <algorithm>

#include "cli/dump_words.h"
#include "data/member_kinds.h"
#include "map/types/map_size_limits.h"

namespace quorvel {

namespace {

void AppendNumber(std::string& line, std::int32_t number) {
  AppendDecimal(line, number);
}
void AppendNumber(std::string& line, float number) {
  AppendFloatBits(line, number);
}

template <class Number>
void AppendTriple(std::string& line, const NumberDefault<Number>& triple) {
  AppendNumber(line, triple.min);
  line += ',';
  AppendNumber(line, triple.max);
  line += ',';
  AppendNumber(line, triple.initial);
}

struct AppendDefault {
  std::string& line;
  void operator()(std::monostate) const { line += '-'; }
  void operator()(const std::string& text) const { AppendHexText(line, text); }
  void operator()(const IntDefault& triple) const { AppendTriple(line, triple); }
  void operator()(const FloatDefault& triple) const { AppendTriple(line, triple); }
};

void DumpMember(const MemberDef& member, Results& out) {
  std::string& line = out.Line();
  line += "member ";
  AppendDecimal(line, member.GetOffset());
  line += ' ';
  AppendEscapedName(line, member.GetName());
  line += ' ';
  line += KindName(member.GetKind());
  line += ' ';
  std::visit(AppendDefault{line}, member.GetDefault());
  line += ' ';
  if (const TypeDef* type = member.GetRefType())
    AppendEscapedName(line, type->GetName());
  else
    line += '-';
  out.EndLine();
}

void DumpClass(ClassDef& type, Results& out) {
  std::string& line = out.Line();
  line += "class ";
  AppendEscapedName(line, type.GetName());
  line += ' ';
  AppendDecimal(line, type.LayOut());
  out.EndLine();
  for (const auto& member : type.Members()) DumpMember(*member, out);
}

void DumpList(const ListDef& type, Results& out) {
  std::string& line = out.Line();
  line += "list ";
  AppendEscapedName(line, type.GetName());
  line += ' ';
  AppendDecimal(line, type.CountItems());
  line += ' ';
  AppendDecimal(line, static_cast<std::int64_t>(type.ItemValues().size()));
  out.EndLine();
  for (const std::string& item : type.ItemNames()) {
    out.Line() += "item ";
    AppendHexText(out.Line(), item);
    out.EndLine();
  }
  for (const std::uint32_t value : type.ItemValues()) {
    out.Line() += "value ";
    AppendDecimal(out.Line(), value);
    out.EndLine();
  }
}

void DumpLimits(const ClassDef* mapClass, Results& out) {
  MapSizeLimits limits;
  std::string& line = out.Line();
  line += GetMapSizeLimits(mapClass, limits) ? "limits 1" : "limits 0";
  for (const auto& number : {limits.minWidth, limits.minHeight, limits.maxWidth, limits.maxHeight,
                             limits.defaultWidth, limits.defaultHeight}) {
    line += ' ';
    if (number)
      AppendDecimal(line, *number);
    else
      line += '-';
  }
  out.EndLine();
}

}  // namespace

void DumpErrors(std::string_view errorText, Results& out) {
  while (!errorText.empty()) {
    const std::size_t end = std::min(errorText.find('\n'), errorText.size());
    out.Line() += "error ";
    AppendMessage(out.Line(), errorText.substr(0, end));
    out.EndLine();
    errorText.remove_prefix(std::min(end + 1, errorText.size()));
  }
}

void DumpDefinitions(const MapContents& contents, Results& out) {
  for (const auto& type : contents.m_pTypes->Types()) {
    if (type->GetKind() == TypeKind::Class)
      DumpClass(static_cast<ClassDef&>(*type), out);
    else
      DumpList(static_cast<const ListDef&>(*type), out);
  }
  DumpLimits(contents.m_pMapClass, out);
}

}  // namespace quorvel
