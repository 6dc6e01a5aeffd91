#include "platform/doc_template.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(DocumentString, HasSevenFields) {
  const DocumentStrings strings = ParseDocumentString(
      "\nMap\nMap (generic format)\nGeneric Data Files (*.gdf)\n.gdf\nQuorvel.Document\nGeneric Data File");
  EXPECT_EQ(strings.windowTitle, "");
  EXPECT_EQ(strings.docName, "Map");
  EXPECT_EQ(strings.fileNewName, "Map (generic format)");
  EXPECT_EQ(strings.filterName, "Generic Data Files (*.gdf)");
  EXPECT_EQ(strings.filterExt, ".gdf");
  EXPECT_EQ(strings.regFileTypeId, "Quorvel.Document");
  EXPECT_EQ(strings.regFileTypeName, "Generic Data File");

  EXPECT_EQ(ParseDocumentString("a\nb").docName, "b");
  EXPECT_EQ(ParseDocumentString("a\nb").filterExt, "");
  EXPECT_EQ(ParseDocumentString("1\n2\n3\n4\n5\n6\n7\n8").regFileTypeName, "7");
}

TEST(DocTemplate, MatchesItsExtensionOnly) {
  const CMultiDocTemplateWithID docTemplate(101, "\n\n\n\n.gdf", nullptr);
  const struct {
    const char* path;
    bool matches;
  } rows[] = {{"/maps/a.gdf", true}, {"A.GDF", true}, {"a.b.gdf", true}, {".gdf", false},
              {"a.gdfx", false},     {"agdf", false}, {"", false}};
  for (const auto& row : rows) EXPECT_EQ(docTemplate.MatchesPath(row.path), row.matches) << row.path;
  EXPECT_FALSE(CMultiDocTemplateWithID(1, "", nullptr).MatchesPath("a.gdf"));
}

}  // namespace
}  // namespace quorvel
