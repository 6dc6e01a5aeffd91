#pragma once

#include <string>

#include "tests/cli/tool_run.h"

namespace quorvel {

/// Definitions with a list, an embedded class and a cell class of all five kinds; lines end with LF here.
inline constexpr char kTypes[] = R"([Classes/Star]
type="names"
0="Red"
1="Blue sky"
[Classes/Star/UI/Color]
0=0xFF0000
1=255
[Classes/Base]
type="class"
[Classes/Base/crew]
type="int"
range="0<4<99"
[Classes/Map]
type="class"
[Classes/Map/Width]
type="int"
range="1<3<1000"
[Classes/Map/Height]
type="int"
range="1<2<1000"
[Classes/Cell]
type="class"
[Classes/Cell/name]
type="string"
range="no one"
[Classes/Cell/v]
type="int"
range="0<5<9"
[Classes/Cell/f]
type="float"
range="0<1.5<2"
[Classes/Cell/star]
type="index"
range="Star"
[Classes/Cell/base]
type="object"
range="Base"
)";

/// What a map file of that name and form begins with.
inline constexpr char kVersion[] = R"([Version]
FileType="Orvantis.Map.Vastrel"
FileVersion=0
CellType="hex"
[Version/Data]
type="text"
)";

/// A map of 3 x 2 cells of which 0 has values of its own and 4 the defaults, as the tool writes it.
inline std::string TypesText() {
  return WithCrLf(kTypes);
}
inline std::string MapText() {
  return WithCrLf(std::string(kVersion) + kTypes + R"([Declare/Galaxy]
type="Map"
[Objects/Galaxy]
Width=3
Height=2
[Objects/Galaxy/Cells/0]
name="a"
v=7
f=0.500000
star=1
[Objects/Galaxy/Cells/4]
name="no one"
v=5
f=1.500000
star=0
)");
}

/// `text` with its one occurrence of `from` replaced.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  return text.replace(text.find(from), from.size(), to);
}

}  // namespace quorvel
