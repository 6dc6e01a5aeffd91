#pragma once

#include <span>

#include "ui/resources/command_ids.h"

namespace quorvel {

enum class ControlKind {
  Icon,
  Label,
  Edit,
  DefaultButton,
  Button,
  CheckButton,  ///< stays down until it is pressed again
  ComboBox,
  ListBox,
  ListView,  ///< this and Static: made by whoever builds the dialog
  Slider,
  Static,
};

/// What else matters of a control's style, added up.
enum ControlStyle : unsigned { kPlain = 0, kAlignRight = 1, kReadOnly = 2, kHidden = 4 };

/// Place and size in dialog units: a quarter of the font's average character width, an eighth of its height.
struct DialogRect {
  int x, y, width, height;
};

struct ControlRow {
  ControlKind kind;
  int id;  ///< -1: nothing asks for it
  DialogRect place;
  const char* text = "";
  unsigned style = kPlain;
};

struct DialogTemplate {
  int id;
  int width, height;
  const char* caption;
  std::span<const ControlRow> controls;
};

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDC_STATIC = -1;
inline constexpr int IDC_DATA_TYPE = 1023;

inline constexpr ControlRow kToolOptionsControls[] = {
    {ControlKind::ComboBox, IDC_TOOL_MEMBER, {2, 2, 108, 96}},
};
inline constexpr DialogTemplate kToolOptionsTemplate = {IDD_TOOL_OPTIONS, 330, 16, "", kToolOptionsControls};

inline constexpr ControlRow kAboutControls[] = {
    {ControlKind::Icon, IDC_STATIC, {11, 17, 20, 20}},
    {ControlKind::Label, IDC_ABOUT_VERSION, {40, 10, 119, 8}, "Quorvel Version 0.0"},
    {ControlKind::Label, IDC_STATIC, {40, 25, 119, 8}, "Maps of hexagonal galaxies"},
    {ControlKind::DefaultButton, IDOK, {178, 7, 50, 14}, "OK"},
};
inline constexpr DialogTemplate kAboutTemplate = {IDD_ABOUT, 235, 55, "About Quorvel", kAboutControls};

inline constexpr ControlRow kVersionDataControls[] = {
    {ControlKind::Label, IDC_STATIC, {7, 7, 36, 8}, "&Data Type:"},
    {ControlKind::ListBox, IDC_DATA_TYPE, {7, 18, 80, 70}},
    {ControlKind::DefaultButton, IDOK, {129, 7, 50, 14}, "OK"},
    {ControlKind::Button, IDCANCEL, {129, 24, 50, 14}, "Cancel"},
};
inline constexpr DialogTemplate kVersionDataTemplate = {IDD_VERSION_DATA, 186, 95, "Version Data",
                                                        kVersionDataControls};

}  // namespace quorvel
