#include "Packaging/generate/MimePackage.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace packaging {
namespace {

TEST(MimePackage, TellsOfBothDocumentTypesAndNothingElse) {
    EXPECT_EQ(mimePackage(),
              R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/vnd.brightmill.parlavox+zip">
    <comment>Parlavox document</comment>
    <sub-class-of type="application/zip"/>
    <generic-icon name="x-office-document"/>
    <glob pattern="*.parlavox"/>
  </mime-type>
  <mime-type type="application/vnd.fernleaf.scribo+zip">
    <comment>Scribo document</comment>
    <sub-class-of type="application/zip"/>
    <generic-icon name="x-office-document"/>
    <glob pattern="*.scribo"/>
  </mime-type>
</mime-info>
)");
}

TEST(MimePackage, IsWhatTheBuildWrites) {
    std::ifstream file(PV_GENERATED_MIME, std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(written, mimePackage());
}

}  // namespace
}  // namespace packaging
