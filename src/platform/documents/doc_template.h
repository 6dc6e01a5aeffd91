#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/documents/document.h"

namespace quorvel {

/// The seven fields of a document string, in their order there.
struct DocumentStrings {
  std::string windowTitle;
  std::string docName;      ///< start of the titles of untitled documents
  std::string fileNewName;  ///< in the list of types for a new document; empty: not offered
  std::string filterName;   ///< in the lists of file dialogs
  std::string filterExt;    ///< with its dot
  std::string regFileTypeId;
  std::string regFileTypeName;
};

/// Fields are separated by line feeds; missing ones are empty, further ones ignored.
DocumentStrings ParseDocumentString(std::string_view text);

/// One type of document: its texts and how it is made.
class CMultiDocTemplateWithID {
 public:
  using Factory = std::function<std::unique_ptr<CDocument>()>;

  CMultiDocTemplateWithID(int resourceId, std::string_view documentString, Factory factory)
      : resourceId_(resourceId),
        strings_(ParseDocumentString(documentString)),
        factory_(std::move(factory)) {}

  int GetResourceID() const { return resourceId_; }
  const DocumentStrings& Strings() const { return strings_; }
  FileFilter Filter() const { return {strings_.filterName, strings_.filterExt}; }

  /// Whether the path ends with this type's extension, in capitals or not.
  bool MatchesPath(std::string_view path) const;
  /// An empty document that belongs to `owner`.
  std::unique_ptr<CDocument> CreateNewDocument(DocumentOwner& owner) const;

 private:
  int resourceId_;
  DocumentStrings strings_;
  Factory factory_;
};

}  // namespace quorvel
