#include "map/types/definitions.h"

#include <memory>

#include "map/types/member_editors.h"
#include "map/types/type_reader.h"

namespace quorvel {

void BuildTypes(const DataBranch& file, MapContents& contents, std::string& errorText) {
  if (const DataBranch* classes = file.FindBranch("Classes")) {
    contents.m_pClasses = std::make_unique<DataBranch>("Classes");
    contents.m_pClasses->CopyFrom(*classes);
    ReadTypes(*contents.m_pClasses, *contents.m_pTypes, nullptr);
  } else {
    errorText += "Classes not found.\n";
  }
  contents.m_pMapClass = contents.m_pTypes->FindClass("Map");
  if (!contents.m_pMapClass) errorText += "Map definition not found.\n";
  contents.m_pCellClass = contents.m_pTypes->FindClass("Cell");
  if (!contents.m_pCellClass) {
    errorText += "Cell definition not found.\n";
    return;
  }
  for (const std::unique_ptr<MemberDef>& member : contents.m_pCellClass->Members()) AttachEditor(*member);
}

bool LoadDefinitions(std::streambuf& file, DataBranch& tree, MapContents& contents, Feedback& feedback,
                     std::string& errorText) {
  const WaitCursor wait(feedback);
  {
    const StatusMessage message(feedback, "Loading file definitions...");
    tree.ReadText(&file);
  }
  BuildTypes(tree, contents, errorText);
  return errorText.empty();
}

}  // namespace quorvel
