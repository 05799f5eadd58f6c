#include "edit/materials/TextureFolders.h"

#include "support/TestFiles.h"

namespace korvane {
namespace {

using Folders = test::TestFiles;

TEST_F(Folders, ATypedNameIsAMaskAFolderOrAFile) {
    using Kind = TypedName::Kind;
    const QString file = write("sub/a.tga", "");
    const struct {
        QString typed;
        Kind kind;
        QString text;
    } rows[] = {{{}, Kind::Nothing, {}},
                {QStringLiteral("  "), Kind::Nothing, {}},
                {QStringLiteral(" *.tga "), Kind::Mask, QStringLiteral("*.tga")},
                {QStringLiteral("a?.tga"), Kind::Mask, QStringLiteral("a?.tga")},
                {QStringLiteral("sub"), Kind::Folder, path("sub")},
                {QStringLiteral("sub/../sub/a.tga"), Kind::File, file},
                {file, Kind::File, file},
                {QStringLiteral("a.tga"), Kind::Missing, QStringLiteral("a.tga")}};
    for (const auto& row : rows) {
        const TypedName found = typedName(row.typed, folder());
        EXPECT_EQ(found.kind, row.kind) << row.typed.toStdString();
        EXPECT_EQ(found.text, row.text);
    }
}

} // namespace
} // namespace korvane
