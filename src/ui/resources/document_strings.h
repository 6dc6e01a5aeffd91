#pragma once

#include "ui/resources/command_ids.h"

namespace quorvel {

/// Seven fields divided by "\n": window title, document name, name in File New, filter, extension, file type
/// id and its name.
struct DocumentString {
  int resourceId;
  const char* fields;
};

/// In the order in which File New and the file dialogs list the types.
inline constexpr DocumentString kDocumentStrings[] = {
    {IDR_GENERIC_DATA,
     "\nMap\nMap (generic format)\nGeneric Data Files (*.gdf)\n.gdf\nQuorvel.Document\nGeneric Data File"},
    {IDR_VASTREL_MAP,
     "\nMap\nOrvantis Vastrel Map\nOrvantis Vastrel Map Files (*.vrl)\n.vrl\nOrvantis.Map.Vastrel\n"
     "Orvantis Vastrel Map File"},
};

}  // namespace quorvel
