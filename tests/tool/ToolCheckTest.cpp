#include "formats/check/Finding.h"
#include "tool/ToolRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace korvane::test {
namespace {

class ToolCheck : public ToolRun {
  protected:
    void SetUp() override {
        ToolRun::SetUp();
        write("lossy.x", "xof 0302txt 0032\nmesh {\n}\nframe frm-Body {\nmesh {\n3;\n0;0;0;,\n"
                         "4;0;0;,\n0;4;0;;\n1;\n3;0,1,9;;\n}\n}\n");
        write("clean.x", "xof 0302txt 0032\nframe frm-a {\n}\n");
        write("newer.x", "xof 0303txt 0032\n");
    }
    static constexpr char warnings[] =
        "lossy.x:2: warning: A mesh outside all frames is ignored [mesh-outside-frame]\n"
        "lossy.x:4: warning: The name of frame \"Body\" becomes lower case [name-case]\n"
        "lossy.x:5: warning: Face 0 of frame \"body\" refers to vertex 9 of 3 "
        "[index-out-of-range]\n"
        "lossy.x:5: warning: The mesh of frame \"body\" has no normals [no-normals]\n";
    static constexpr char refusal[] = "newer.x: DirectX 0303 text: only 0302 is read\n";
};

TEST_F(ToolCheck, ReportsEachFindingInALineAndContinuesAfterARefusal) {
    const Outcome outcome = run("check newer.x lossy.x clean.x");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, refusal);
    EXPECT_EQ(outcome.output, warnings);
    for (const auto& [words, status] : {std::pair("check lossy.x", 0),
                                        {"check --strict lossy.x", 1},
                                        {"check --strict clean.x", 0}}) {
        EXPECT_EQ(run(words).status, status) << words;
    }
    const Outcome piped = shell("cat lossy.x | $T check -");
    EXPECT_EQ(piped.output.substr(0, 27), "standard input:2: warning: ");
    EXPECT_EQ(shell("$T check lossy.x lossy.x lossy.x >&-").status, 1);
    EXPECT_EQ(run("convert lossy.x o.xsi").errors,
              std::string(warnings).substr(0, std::string(warnings).find('\n') + 1))
        << "only losses are reported";
}

TEST_F(ToolCheck, ReportsTheSameAsOneDocument) {
    const Outcome outcome = run("check --json lossy.x newer.x");
    EXPECT_EQ(outcome.errors, refusal);
    const QJsonObject document =
        QJsonDocument::fromJson(QByteArray::fromStdString(outcome.output)).object();
    EXPECT_EQ(document[u"version"].toInt(), 1);
    const QJsonArray files = document[u"files"].toArray();
    ASSERT_EQ(files.size(), 2);
    EXPECT_EQ(files[1].toObject()[u"error"].toString(),
              QStringLiteral("DirectX 0303 text: only 0302 is read"));
    std::string lines;
    const QJsonArray findings = files[0].toObject()[u"findings"].toArray();
    for (const QJsonValue& value : findings) {
        const QJsonObject finding = value.toObject();
        lines += "lossy.x:" + std::to_string(finding[u"line"].toInt()) +
                 ": warning: " + finding[u"text"].toString().toStdString() + " [" +
                 finding[u"id"].toString().toStdString() + "]\n";
    }
    EXPECT_EQ(lines, warnings);
    EXPECT_EQ(findings[0].toObject()[u"kind"].toString(), QStringLiteral("lost in reading"));
}

TEST_F(ToolCheck, ExplainsEveryWarning) {
    for (const FindingRow& row : findingRows()) {
        const std::string name(row.name);
        const Outcome outcome = run("check --explain " + name);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(outcome.output.starts_with(name + " (")) << outcome.output;
        EXPECT_GT(outcome.output.size(), row.explanation.size());
    }
    for (const char* const wrong : {"check --explain frob", "check --explain no-area good.x",
                                    "check --explain no-area --json", "check"}) {
        EXPECT_EQ(run(wrong).status, 2) << wrong;
    }
}

} // namespace
} // namespace korvane::test
