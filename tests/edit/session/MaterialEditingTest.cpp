#include "edit/session/MaterialEditing.h"

#include "edit/materials/MaterialValues.h"
#include "support/MaterialModel.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace korvane::test {
namespace {

/// A user at work on materials, without windows. Each line of a script is a command with arguments.
struct Editing : MaterialModel {
    explicit Editing(std::optional<FramePath> frame = framePath(), std::int32_t slot = 0) {
        view.setViewSize(256, 256);
        view.setTextureSize(300, 200);
        edit(std::move(frame), slot);
    }

    void edit(std::optional<FramePath> frame, std::int32_t slot) {
        materials.emplace(document, history, MaterialSubject{std::move(frame), slot});
    }

    /// Asks about the current material and applies the reply, if there is a question.
    Changes answer(const std::function<Changes(const MaterialQuestion&)>& reply) {
        const Changes changes = materials->commit();
        const auto question = materials->ask();
        return changes | (question ? reply(*question) : Changes());
    }

    Changes color(MaterialColor which, const ColorRGB& value) {
        return answer([&](const auto& asked) { return materials->setColor(asked, which, value); });
    }

    Changes select(int face, int vertex) {
        selected = FacePart{static_cast<std::size_t>(face), static_cast<std::size_t>(vertex)};
        return materials->commit();
    }

    Changes use(bool first, bool second, bool third) {
        return materials->useMaterials({first, second, third});
    }

    void work(std::initializer_list<std::string> lines) {
        for (const std::string& line : lines) {
            static_cast<void>(run(line));
        }
    }

    Changes run(const std::string& line) {
        const std::vector<std::string> said = words(line + " 0 0 0");
        const auto& word = said[1];
        const int first = QString::fromStdString(word).toInt(); // 0 for a word
        const int n[] = {first, std::stoi(said[2]), std::stoi(said[3])};
        const auto byte = [](int number) { return static_cast<std::uint8_t>(number); };
        const ColorRGB value = modelColor({byte(n[0]), byte(n[1]), byte(n[2]), 255});
        const DragInput at = {DragButton::Left, static_cast<float>(n[0]), static_cast<float>(n[1])};
        const std::map<std::string, std::function<Changes()>> commands = {
            {"ambient", [&] { return color(MaterialColor::Ambient, value); }},
            {"diffuse", [&] { return color(MaterialColor::Diffuse, value); }},
            {"specular", [&] { return color(MaterialColor::Specular, value); }},
            {"opacity", [&] { return materials->moveOpacity(n[0]); }},
            {"shininess", [&] { return materials->typeShininess(word).changes; }},
            {"texture",
             [&] {
                 return answer([&](const auto& asked) {
                     return materials->setTexture(asked, word, nullptr);
                 });
             }},
            {"on", [&] { return materials->setTextureOn(true); }},
            {"off", [&] { return materials->setTextureOn(false); }},
            {"select", [&] { return select(n[0], n[1]); }},
            {"slot", [&] { return materials->chooseSlot(n[0], selected); }},
            {"use", [&] { return use(n[0] > 0, n[1] > 0, n[2] > 0); }},
            {"press", [&] { return materials->beginDrag(at, view, selected); }},
            {"drag", [&] { return materials->moveDrag(at, view); }},
            {"release", [&] { return materials->endDrag(at, view); }},
            {"commit", [&] { return materials->commit(); }},
            {"end", [&] { return materials->end(); }}};
        return commands.at(said[0])();
    }

    /// The kinds of all entries.
    [[nodiscard]] std::vector<EditKind> kinds() const {
        std::vector<EditKind> found;
        for (const EditAction& entry : history.entries()) {
            found.push_back(entry.kind);
        }
        return found;
    }

    TexCoordView view;
    std::optional<FacePart> selected;
    std::optional<MaterialEditing> materials;
};

// What a user can do while a value is pending or a drag runs.
constexpr const char* others[] = {"ambient 1 2 3", "texture a.bmp", "off",        "slot 1",
                                  "use 0 1 1",     "select 1",      "press 9 9",  "commit",
                                  "end",           "opacity 3",     "shininess 4"};

TEST(MaterialEditing, RunsOfAValueAreOneEntryOnceSomethingElseIsDone) {
    const std::tuple<const char*, const char*, EditKind> runs[] = {
        {"opacity 10", "opacity 40", EditKind::Opacity},
        {"shininess 1", "shininess 12", EditKind::Power}};
    for (const auto& [first, second, kind] : runs) {
        for (const std::string end : others) {
            if (end.substr(0, 2) == std::string(first).substr(0, 2)) {
                continue;
            }
            Editing user;
            user.selected = FacePart{0, 0};
            const EditSnapshot before = user.snapshot();
            for (const char* line : {first, second}) {
                const std::uint64_t revision = user.document.Revision;
                EXPECT_EQ(user.run(line), Changes{.materials = true}) << "live";
                EXPECT_GT(user.document.Revision, revision);
            }
            const EditSnapshot pending = user.snapshot();
            EXPECT_FALSE(pending == before || user.history.canUndo());
            user.work({end});
            ASSERT_TRUE(user.history.canUndo()) << second << ", " << end;
            EXPECT_EQ(user.kinds()[0], kind) << end;
            while (user.history.position() > 0) {
                user.history.undo(user.document);
            }
            // a value that is itself pending has no entry yet
            user.material().FaceColor.alpha = pending.materials[0].FaceColor.alpha;
            user.material().Power = pending.materials[0].Power;
            EXPECT_EQ(user.snapshot(), pending) << end;
            user.history.undo(user.document);
            EXPECT_EQ(user.snapshot(), before) << end;
        }
    }
}

TEST(MaterialEditing, AnInvalidShininessIsRefused) {
    Editing user;
    for (const char* text : {"-1", "letters", "", "1e99"}) {
        const ShininessOutcome outcome = user.materials->typeShininess(text);
        EXPECT_TRUE(outcome.refused && outcome.changes == Changes()) << text;
        EXPECT_EQ(user.materials->shininess(), text) << "stays as typed";
        EXPECT_EQ(user.material().Power, 200.0F) << text;
    }
    user.work({"commit"});
    EXPECT_FALSE(user.history.canUndo());
    EXPECT_FALSE(user.materials->typeShininess("3").refused);
    EXPECT_TRUE(user.materials->typeShininess("1e99").refused);
    user.work({"commit"});
    EXPECT_FALSE(user.history.canUndo());
    EXPECT_EQ(user.material().Power, 200.0F) << "no change without an entry";
    EXPECT_FALSE(user.materials->typeShininess("0").refused);
    user.work({"end"});
    user.history.undo(user.document);
    EXPECT_EQ(user.material().Power, 200.0F);
    EXPECT_FALSE(user.history.canUndo());
}

TEST(MaterialEditing, SlotsComeAndGoAndTheCurrentOneFollows) {
    using Slots = std::vector<std::int32_t>;
    struct Case {
        const char* line;
        Slots slots;
        Slots faces;
        std::int32_t current;
        std::optional<std::int32_t> only; ///< the material that must stay
        std::size_t entries;
    };
    const Case cases[] = {
        {"slot 1", {0, 1, 0}, {0, 1, 2}, 1, {}, 0},  {"use 0 1 0", {1}, {0, 0, 0}, 0, 1, 2},
        {"use 0 1 1", {1, 2}, {0, 0, 0}, 0, {}, 3},  {"select 1 2", {1, 2}, {0, 0, 0}, 0, {}, 3},
        {"slot 1", {1, 2}, {0, 1, 0}, 1, {}, 4}, // a vertex stands for its face
        {"slot 0", {1, 2}, {0, 0, 0}, 0, {}, 5},     {"slot -1", {1, 2}, {0, 0, 0}, 0, {}, 5},
        {"slot 2", {1, 2}, {0, 0, 0}, 0, {}, 5},     {"slot 1", {1, 2}, {0, 1, 0}, 1, {}, 6},
        {"use 0 0 1", {2}, {0, 0, 0}, 0, 2, 7},      {"use 0 0 0", {2}, {0, 0, 0}, 0, 2, 7},
        {"use 1 0 1", {2, 0}, {0, 0, 0}, 0, {}, 8},  {"use 1 0 0", {0}, {0, 0, 0}, 0, 0, 9},
        {"use 1 1 0", {0, 1}, {0, 0, 0}, 0, {}, 10}, {"slot 1", {0, 1}, {0, 1, 0}, 1, {}, 11},
        {"use 1 0 0", {0}, {0, 0, 0}, 0, 0, 12}};
    Editing user;
    user.mesh().MaterialSlotList = {0, 1, 0};
    user.mesh().FaceSlotIndex = {0, 1, 2};
    for (const auto& [line, slots, faces, current, only, entries] : cases) {
        const std::size_t before = user.history.entries().size();
        EXPECT_EQ(user.run(line), Changes{.materials = entries > before}) << line;
        EXPECT_EQ(user.materials->slots(), slots) << line;
        EXPECT_EQ(user.mesh().FaceSlotIndex, faces) << line;
        EXPECT_EQ(user.materials->currentSlot(), current) << line;
        EXPECT_EQ(user.materials->onlyMaterial(), only) << line;
        EXPECT_EQ(user.history.entries().size(), entries) << line;
    }
    EXPECT_EQ(user.run("end"), (Changes{.tree = true, .geometry = true}));
    user.mesh().MaterialSlotList = {2, 2};
    EXPECT_EQ(user.materials->onlyMaterial(), 2);
    EXPECT_EQ(user.materials->usedMaterials(), (std::vector<bool>{false, false, true}));
}

TEST(MaterialEditing, MinusZeroIsTheSameShininess) {
    for (const float power : {0.0F, -0.0F}) {
        Editing user;
        user.document.Materials[0].Power = user.document.Materials[2].Power = power;
        const bool negative = std::signbit(power);
        user.work({"slot 1", "slot 0", negative ? "shininess 0" : "shininess -0", "commit"});
        EXPECT_FALSE(user.history.canUndo());
        EXPECT_EQ(std::signbit(user.material().Power), negative) << "saved as it was";
    }
}

TEST(MaterialEditing, EachSlotHasItsOwnValues) {
    Editing user;
    user.document.Materials[1].Power = 3;
    user.work(
        {"opacity 40", "shininess 5", "slot 1", "opacity 70", "shininess 3", "opacity 20",
         "opacity 70", "shininess 6", "slot 0", "shininess 5", "slot 1", "shininess 6.0",
         "end"}); // a value that returns to the old one, or is typed in other digits, is no step
    EXPECT_EQ(user.kinds(), (std::vector{EditKind::Opacity, EditKind::Power, EditKind::Opacity,
                                         EditKind::Power}));
    EXPECT_EQ(user.materials->shininess(), "6.0");
    EXPECT_EQ(user.materials->end(), Changes{.geometry = true}) << "the tree shows no values";
    while (user.history.canUndo()) {
        user.history.undo(user.document);
    }
    EXPECT_EQ(user.document.Materials[1].Power, 3.0F);
    EXPECT_EQ(user.document.Materials[1].FaceColor.alpha, 1.0F);
    user.work({"slot 0", "use 0 1 0"});
    EXPECT_EQ(user.materials->shininess(), "3") << "of the material that is shown now";
}

TEST(MaterialEditing, TheTableOfMaterialsHasNoFrame) {
    Editing user(std::nullopt, 2);
    EXPECT_FALSE(user.materials->ofMesh());
    EXPECT_EQ(user.materials->currentMaterial(), 2U);
    user.selected = FacePart{0, 0};
    for (const char* line : {"use 0 1 1", "slot 1", "press 9 9", "drag 20 20", "release 20 20"}) {
        EXPECT_EQ(user.run(line), Changes()) << line;
    }
    EXPECT_EQ(user.mesh().MaterialSlotList, (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(user.mesh().CurrentSlot, 0);
    EXPECT_FALSE(user.history.canUndo());
    user.work({"diffuse 0 255 0"});
    EXPECT_EQ(user.document.Materials[1].FaceColor.green, 1.0F);
    EXPECT_EQ(user.run("end"), Changes{.geometry = true});
}

TEST(MaterialEditing, WithoutAMaterialNothingIsEdited) {
    const std::function<void(Editing&)> ways[] = {
        [](Editing& user) { user.document.Materials.clear(); },
        [](Editing& user) {
            user.mesh().MaterialSlotList = {7, 0};
        },
        [](Editing& user) { user.mesh().MaterialSlotList.clear(); },
        [](Editing& user) { user.document.Root.Children.clear(); }};
    for (const auto& lose : ways) {
        Editing user;
        lose(user);
        user.edit(MaterialModel::framePath(), 0);
        const EditSnapshot before(user.document);
        EXPECT_EQ(user.materials->currentMaterial(), std::nullopt);
        EXPECT_EQ(user.materials->shininess(), "");
        EXPECT_FALSE(user.materials->ask());
        user.work({"ambient 1 2 3", "opacity 3", "shininess 4", "on", "off", "texture a.bmp",
                   "commit", "end"});
        EXPECT_EQ(EditSnapshot(user.document), before);
        EXPECT_FALSE(user.history.canUndo());
    }
}

TEST(MaterialEditing, LateAnswersAreDropped) {
    const std::pair<const char*, bool> meanwhile[] = {
        {"commit", false}, {"on", false},       {"opacity 3", true},     {"shininess 4", true},
        {"slot 1", true},  {"use 0 1 1", true}, {"texture b.bmp", true}, {"diffuse 1 2 3", true}};
    for (const auto& [line, late] : meanwhile) {
        Editing user;
        const MaterialQuestion question = user.materials->ask().value();
        user.work({line});
        const EditSnapshot before(user.document);
        const auto entries = user.history.entries().size();
        const Changes colored =
            user.materials->setColor(question, MaterialColor::Ambient, {1, 1, 1});
        EXPECT_EQ(colored, Changes{.materials = !late}) << line;
        if (late) {
            EXPECT_EQ(user.materials->setTexture(question, "a.bmp", nullptr), Changes()) << line;
        }
        EXPECT_EQ(EditSnapshot(user.document) == before, late) << line;
        EXPECT_EQ(user.history.entries().size() == entries, late) << line;
    }
}

TEST(MaterialEditing, ADragIsOneEntryOrLeavesNoTrace) {
    Editing user;
    const std::vector<Vec2> before = user.mesh().TexCoords;
    EXPECT_EQ(user.run("press 10 10"), Changes()) << "nothing is selected";
    EXPECT_EQ(user.run("drag 20 20"), Changes());
    user.selected = FacePart{0, 0};
    user.work({"press 100 100"});
    for (const char* line : {"drag 120 90", "drag 90 70"}) {
        const std::uint64_t changes = user.document.LiveChanges;
        const std::uint64_t drawn = user.mesh().ListRevision.any();
        EXPECT_EQ(user.run(line), Changes{.materials = true}) << "live";
        EXPECT_GT(user.document.LiveChanges, changes);
        EXPECT_NE(user.mesh().ListRevision.any(), drawn);
    }
    EXPECT_TRUE(user.materials->dragging() && !user.history.canUndo());
    EXPECT_EQ(user.materials->endDrag({DragButton::Right, 0, 0}, user.view), Changes());
    EXPECT_EQ(user.run("release 130 80"), Changes{.materials = true});
    EXPECT_EQ(user.run("release 130 80"), Changes());
    EXPECT_EQ(user.kinds(), std::vector{EditKind::TexCoords});
    EXPECT_FLOAT_EQ(user.mesh().TexCoords[0].u, 0.1F + 30.0F / 300.0F);
    user.history.undo(user.document);
    EXPECT_EQ(user.mesh().TexCoords, before);
    for (const std::string end : others) {
        Editing other;
        other.selected = FacePart{1, 3};
        other.mesh().TexCoords[3] = {-3.0F, 7.5F}; // beyond the edges, where a move would pin it
        const std::vector<Vec2> start = other.mesh().TexCoords;
        other.work({"press 100 100", "drag 90 70"});
        EXPECT_NE(other.mesh().TexCoords, start);
        const Changes told = other.run(end);
        EXPECT_EQ(other.mesh().TexCoords, start) << end;
        EXPECT_TRUE(told.materials) << end;
        if (!other.materials->dragging()) { // another press starts the next drag
            other.work({"release 9 9"});
            EXPECT_EQ(other.mesh().TexCoords, start) << end;
        }
    }
}

TEST(MaterialEditing, EveryEditGoesDownAndUpTheLadder) {
    Editing user;
    user.material().Power = 1.0F / 3.0F;
    user.material().FaceColor.alpha = 0.289F;
    user.edit(MaterialModel::framePath(), 0);
    std::vector<EditSnapshot> rungs = {user.snapshot()};
    for (const char* line :
         {"ambient 9 8 7", "diffuse 99 8 7", "specular 9 98 7", "opacity 33", "shininess 0.1",
          "off", "on", "select 1", "press 100 100", "drag 105 103", "release 110 90", "select 1 3",
          "press 0 0", "release -90 400", "texture skin.bmp", "slot 0", "use 1 1 1", "use 0 1 1",
          "ambient 1 1 1"}) {
        user.work({line});
        if (!user.materials->dragging()) {
            user.work({"commit"});
        }
        if (user.history.entries().size() == rungs.size()) {
            rungs.push_back(user.snapshot());
        }
    }
    EXPECT_EQ(rungs.size(), 15U);
    EXPECT_EQ(climb(user.document, user.history, rungs), "");
}

TEST(MaterialEditing, KnowsTheFacesOfAMaterialAndWhatAFaceShows) {
    Editing user;
    user.mesh().MaterialSlotList = {0, 1, 0, 9};
    const struct {
        std::vector<std::int32_t> faceSlots;
        std::int32_t current;
        std::vector<std::size_t> faces;
        const char* second;                                 ///< what the second face shows
    } rows[] = {{{0, 1, 2}, 0, {0, 2}, "Shows Material 2"}, // two slots of one material
                {{0, 1, 2}, 1, {1}, "Shows Material 2"},
                {{0}, 0, {0}, "Shows no material"}, // the last slot leads nowhere
                {{0, -1, 7}, 0, {0}, "Shows no material"},
                {{3, 0, 1}, 3, {}, "Shows Material 1"}};
    for (const auto& [faceSlots, current, faces, second] : rows) {
        user.mesh().FaceSlotIndex = faceSlots;
        user.edit(Editing::framePath(), current);
        EXPECT_EQ(user.materials->facesOfCurrent(), faces) << second;
        EXPECT_EQ(user.materials->faceText(FacePart{1, 2}).toStdString(), second);
    }
    EXPECT_EQ(user.materials->faceText(FacePart{3, 0}), QString()) << "no such face";
    EXPECT_EQ(user.materials->faceText({}), QString());
}

} // namespace
} // namespace korvane::test
