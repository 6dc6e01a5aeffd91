#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/documents/doc_template.h"

namespace quorvel {

/// Makes the document types known to the user's desktop: MIME types, their icons, and an entry that opens and
/// prints them with this program, under the XDG data folder: the files of an installed copy (share/), with
/// this program's place. Only a copy that is installed does so, and only where neither the system nor the
/// user has them yet. Silent; never replaces a file.
void RegisterShellFileTypes(const std::vector<std::unique_ptr<CMultiDocTemplateWithID>>& templates);

/// "application/x-" and the type's registry file type id in small letters.
std::string MimeTypeOf(const CMultiDocTemplateWithID& docTemplate);

}  // namespace quorvel
