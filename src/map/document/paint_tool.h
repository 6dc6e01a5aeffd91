#pragma once

namespace quorvel {

class CVastrelDoc;
class MemberEditor;

/// Control number of the combo box in the tool options bar that lists the members of the cell class.
inline constexpr int kToolCombo = 1000;
/// Notification of a combo box whose user selected another entry.
inline constexpr int kSelectionChanged = 1;
/// Control numbers of a document's editors begin above this one.
inline constexpr int kLastBarControl = 10000;

/// Paints with the member at this position of the cell class from now on: shows its editor and hides the one
/// shown before. Creates all editors first if there are none. A position without a member changes nothing.
void ShowPaintEditor(CVastrelDoc& document, int position);

/// A control of the tool options bar was used while this document was active; `position` is the combo box's
/// selection. Only another selection in kToolCombo means something.
void OnToolOptionsCommand(CVastrelDoc& document, int controlId, int notification, int position);

/// Stores what the editor of the painted member holds in the current cell, which gets a record if it has
/// none. An object member stores nothing. Nothing happens without a painted member and outside the map.
/// Throws std::bad_alloc when memory runs out, and the cell is as it was.
void PaintCurrentCell(CVastrelDoc& document);

/// The document's editor with this control number, or null.
MemberEditor* FindEditor(const CVastrelDoc& document, int controlId);

}  // namespace quorvel
