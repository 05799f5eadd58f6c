#include "edit/session/StatusText.h"

#include "formats/xsi/XsiReader.h"
#include "support/TestFiles.h"

#include <QImage>

namespace korvane {
namespace {

using StatusText = test::TestFiles;

/// A model of one triangle with a material for each texture.
std::string modelWith(const QStringList& textures) {
    std::string text = "xof 0302txt 0032\nframe frm-a {\nmesh a {\n3;\n0;0;0;,\n1;0;0;,\n0;1;0;;\n"
                       "1;\n3;0,1,2;;\nmeshmateriallist {\n" +
                       std::to_string(textures.size()) + ";\n1;\n0;\n";
    for (const QString& texture : textures) {
        text += "material {\n1;1;1;1;;\n0;\n0;0;0;;\n0;0;0;;\ntexturefilename {\n\"" +
                texture.toStdString() + "\";\n}\n}\n";
    }
    return text + "}\n}\n}\n";
}

TEST_F(StatusText, OpeningNamesTheTexturesThatDoNotShow) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(path("good.bmp")));
    write("bad.tga", "no picture");
    write("old.wmf", "never shown");
    const std::pair<QString, const char*> rows[] = {
        {QStringLiteral("good.bmp"), ""},
        {QStringLiteral("rock.tga"), "; not found: rock.tga"},
        {QStringLiteral("a.tga good.bmp b.pic"), "; not found: a.tga, b.pic"},
        {QStringLiteral("rock.tga sail.pic c.bmp d.bmp"),
         "; not found: rock.tga, sail.pic and 2 more"},
        {QStringLiteral("bad.tga old.wmf"), "; not shown: bad.tga, old.wmf"},
        {QStringLiteral("old.wmf gone.bmp"), "; not found: gone.bmp; not shown: old.wmf"},
        {QString(60, u'x') + QStringLiteral("y.bmp"),
         "; not found: xxxxxxxxxxxxxxxxxxxxxxx…xxxxxxxxxxxxxxxxxxy.bmp"},
    };
    for (const auto& [textures, expected] : rows) {
        const QString file = write("m.x", modelWith(textures.split(u' ')));
        ModelDocument document;
        OpenNotes notes;
        ASSERT_EQ(FileOpenXSI(file, document, {}, &notes), ReadStatus::Done);
        EXPECT_EQ(openedText(document, notes.unseen).toStdString(),
                  "1 mesh, 1 face" + std::string(expected));
    }
}

TEST_F(StatusText, SavingNamesTheFramesWhoseNamesGetLost) {
    const std::pair<const char*, const char*> rows[] = {
        {"body", ""},
        {"a b", "; frames that it will not fully restore: \"a b\""},
        {"a b|a b||tail", "; frames that it will not fully restore: \"a b\", \"\""},
        {"a b|c d|e f|g h", "; frames that it will not fully restore: \"a b\", \"c d\" and 2 more"},
    };
    for (const auto& [names, expected] : rows) {
        ModelDocument document;
        document.FileName = QStringLiteral("a.xsi");
        document.Root.Name = "root";
        for (const QString& name : QString::fromLatin1(names).split(u'|')) {
            document.Root.Children.emplace_back().Name = name.toStdString();
        }
        EXPECT_EQ(savedText(document, SaveResult::Written).toStdString(),
                  "a.xsi was written: 0 meshes, 0 faces" + std::string(expected));
    }
    // an animation refers to its frame by name: reading gives it to the first one
    ModelDocument document;
    document.FileName = QStringLiteral("a.xsi");
    for (const char* name : {"twin", "twin", "twin"}) {
        document.Root.Name = "root";
        FrameRecord& frame = document.Root.Children.emplace_back();
        frame.Name = name;
        frame.HasMesh = true;
        frame.HasAnimation = document.Root.Children.size() == 2;
    }
    EXPECT_EQ(savedText(document, SaveResult::Written),
              QStringLiteral("a.xsi was written: 3 meshes, 0 faces; frames that it will not fully "
                             "restore: \"twin\""));
    document.Root.Children.pop_back();
    document.Root.Children.erase(document.Root.Children.begin());
    EXPECT_FALSE(savedText(document, SaveResult::Written).contains(QLatin1String("twin")));
}

TEST_F(StatusText, SavingSaysWhatWasWritten) {
    const std::tuple<const char*, SaveResult, const char*> rows[] = {
        {"/models/ship.xsi", SaveResult::Written, "ship.xsi was written: 0 meshes, 0 faces"},
        {"/models/ship.x", SaveResult::NotWritten,
         "Nothing was written: ship.x is not a dotXSI file"},
        {"/models/ship.xsi", SaveResult::Failed, "Nothing was written: unable to save ship.xsi"},
    };
    for (const auto& [name, result, expected] : rows) {
        ModelDocument document;
        document.Root.Name = "root";
        document.FileName = QString::fromLatin1(name);
        EXPECT_EQ(savedText(document, result).toStdString(), expected);
    }
}

} // namespace
} // namespace korvane
