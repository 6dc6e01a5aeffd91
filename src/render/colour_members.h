#pragma once

#include <string>

#include <QRgb>

namespace quorvel {

class ClassDef;
class MemberDef;
struct CellRecord;

/// The index member of `cellClass` that `name` stands for, and the one `step` (-1, 0 or +1) index members
/// away from it in declared order, round the ends. A name that is empty or names no index member stands for
/// the first one. `name` becomes the result's name, or empty where the class has no index member (null).
const MemberDef* SelectIndexMember(const ClassDef* cellClass, std::string& name, int step);

/// Colour to which an index member maps the record's item: red in bits 16..23 of the list's value, green
/// in 8..15, blue in 0..7, opaque. Black without a member and without data.
QRgb MappedColour(const MemberDef* member, const CellRecord& record);

}  // namespace quorvel
