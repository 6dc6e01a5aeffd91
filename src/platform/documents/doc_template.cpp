#include "platform/documents/doc_template.h"

#include "data/ascii_case.h"

namespace quorvel {

DocumentStrings ParseDocumentString(std::string_view text) {
  DocumentStrings strings;
  for (std::string* field :
       {&strings.windowTitle, &strings.docName, &strings.fileNewName, &strings.filterName, &strings.filterExt,
        &strings.regFileTypeId, &strings.regFileTypeName}) {
    const std::size_t end = text.find('\n');
    *field = text.substr(0, end);
    text = end == text.npos ? std::string_view() : text.substr(end + 1);
  }
  return strings;
}

bool CMultiDocTemplateWithID::MatchesPath(std::string_view path) const {
  const std::string& extension = strings_.filterExt;
  return !extension.empty() && path.size() > extension.size() && EndsWithIgnoringCase(path, extension);
}

std::unique_ptr<CDocument> CMultiDocTemplateWithID::CreateNewDocument(DocumentOwner& owner) const {
  std::unique_ptr<CDocument> document = factory_();
  document->SetOwner(owner, *this);
  return document;
}

}  // namespace quorvel
