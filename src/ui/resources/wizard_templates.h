#pragma once

#include "ui/resources/dialog_templates.h"

namespace quorvel {

inline constexpr int IDD_MAP_PROPERTIES = 201;
inline constexpr int IDC_WIDTH = 1001;
inline constexpr int IDC_HEIGHT = 1002;
inline constexpr int IDC_WIDTH_SLIDER = 1003;
inline constexpr int IDC_HEIGHT_SLIDER = 1004;
inline constexpr int IDC_WIDTH_MIN = 1005;
inline constexpr int IDC_HEIGHT_MIN = 1006;
inline constexpr int IDC_WIDTH_MAX = 1007;
inline constexpr int IDC_HEIGHT_MAX = 1008;

inline constexpr int IDD_CELL_PROPERTIES = 202;
inline constexpr int IDC_PROPERTIES = 1009;
inline constexpr int IDC_ADD_VALUE = 1010;
inline constexpr int IDC_REMOVE_VALUES = 1011;
inline constexpr int IDC_VALUES = 1012;
inline constexpr int IDC_NAME_LIST = 1016;
inline constexpr int IDC_ORIGIN_PICKER = 1017;
inline constexpr int IDC_SET_ORIGIN = 1019;

inline constexpr int IDD_NEW_TYPE = 30721;
inline constexpr int IDC_NEW_TYPES = 100;

inline constexpr ControlRow kMapPropertiesControls[] = {
    {ControlKind::Label, IDC_STATIC, {7, 7, 20, 8}, "&Width"},
    {ControlKind::Edit, IDC_WIDTH, {7, 17, 40, 14}, "", kReadOnly},
    {ControlKind::Label, IDC_WIDTH_MIN, {51, 21, 19, 8}, "", kAlignRight},
    {ControlKind::Slider, IDC_WIDTH_SLIDER, {72, 17, 129, 15}},
    {ControlKind::Label, IDC_WIDTH_MAX, {205, 21, 19, 8}},
    {ControlKind::Label, IDC_STATIC, {7, 40, 22, 8}, "&Height"},
    {ControlKind::Edit, IDC_HEIGHT, {7, 50, 40, 14}, "", kReadOnly},
    {ControlKind::Label, IDC_HEIGHT_MIN, {51, 52, 19, 8}, "", kAlignRight},
    {ControlKind::Slider, IDC_HEIGHT_SLIDER, {72, 49, 129, 15}},
    {ControlKind::Label, IDC_HEIGHT_MAX, {205, 52, 19, 8}},
};
inline constexpr DialogTemplate kMapPropertiesTemplate = {IDD_MAP_PROPERTIES, 231, 71, "Map Properties",
                                                          kMapPropertiesControls};

inline constexpr ControlRow kCellPropertiesControls[] = {
    {ControlKind::Label, IDC_STATIC, {7, 7, 65, 8}, "Available &Properties:"},
    {ControlKind::ListView, IDC_PROPERTIES, {7, 18, 107, 102}},
    {ControlKind::Button, IDC_ADD_VALUE, {7, 125, 107, 14}, "&Add"},
    {ControlKind::Label, IDC_STATIC, {124, 7, 52, 8}, "Property &Values:"},
    {ControlKind::ListView, IDC_VALUES, {123, 18, 307, 102}},
    {ControlKind::Button, IDC_REMOVE_VALUES, {124, 125, 107, 14}, "&Remove"},
    {ControlKind::ComboBox, IDC_NAME_LIST, {171, 60, 48, 65}, "", kHidden},
    {ControlKind::Static, IDC_ORIGIN_PICKER, {410, 7, 20, 20}, "", kHidden},
    {ControlKind::CheckButton, IDC_SET_ORIGIN, {380, 125, 50, 14}, "&Set Origin", kHidden},
};
inline constexpr DialogTemplate kCellPropertiesTemplate = {IDD_CELL_PROPERTIES, 437, 146, "Cell Properties",
                                                           kCellPropertiesControls};

inline constexpr ControlRow kNewTypeControls[] = {
    {ControlKind::Label, IDC_STATIC, {7, 7, 60, 8}, "&New"},
    {ControlKind::ListBox, IDC_NEW_TYPES, {7, 18, 115, 54}},
    {ControlKind::DefaultButton, IDOK, {129, 7, 50, 14}, "OK"},
    {ControlKind::Button, IDCANCEL, {129, 24, 50, 14}, "Cancel"},
};
inline constexpr DialogTemplate kNewTypeTemplate = {IDD_NEW_TYPE, 186, 79, "New", kNewTypeControls};

}  // namespace quorvel
