// Which part of the source may use which.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {
namespace {

namespace fs = std::filesystem;

/// A folder of the source. It uses itself and the rooms above it in the table, without those in
/// `notUsed`.
struct Room {
    std::string_view name;
    std::string_view notUsed = {};
};

constexpr std::array rooms = {
    Room{"render/math"},
    Room{"render/picture"},
    Room{"model/records", "render/picture"},
    Room{"model/document", "render/picture"},
    Room{"formats/text"},
    Room{"formats/files"},
    Room{"formats/textures"},
    Room{"formats/xsi"},
    Room{"edit/history"},
    Room{"edit/clipboard"},
    Room{"render/scene"},
    Room{"render/drags"},
    Room{"render/software"},
    Room{"render/planes", "render/software"},
    Room{"render/gl", "render/software render/planes"},
    Room{"edit/materials"},
    Room{"edit/session"},
    Room{"app/widgets"},
    Room{"render/forms"},
    Room{"edit/forms"},
    Room{"model/forms"},
    Room{"app/shell"},
    Room{"tool", "app/widgets render/forms edit/forms model/forms app/shell"},
};

/// The room that a file lies in, by its path below the source folder; the end if it lies in none.
auto roomOf(const std::string& file) {
    const std::string folder = fs::path(file).parent_path().generic_string();
    return std::find_if(rooms.begin(), rooms.end(),
                        [&](const Room& room) { return room.name == folder; });
}

struct Include {
    std::string name;
    bool angled;
};

/// The files that a source file, or a form made with the designer, includes.
std::vector<Include> includesOf(const std::string& text) {
    std::vector<Include> found;
    const auto collect = [&](std::string_view keyword, char before, char behind) {
        for (std::size_t at = text.find(keyword); at != std::string::npos;
             at = text.find(keyword, at + 1)) {
            const std::size_t line = std::min(text.find('\n', at), text.size());
            const std::size_t open = text.find(before, at);
            const std::size_t close = text.find(behind, open + 1);
            if (open < line && close < line) {
                found.push_back({text.substr(open + 1, close - open - 1), before == '<'});
            }
        }
    };
    collect("#include", '"', '"');
    collect("#include", '<', '>');
    collect("<header", '>', '<');
    return found;
}

/// Where an include comes from. What stands in quotes is ours, unless the build makes it; what
/// stands in angle brackets is if its first folder is one of the table's.
enum class Origin { Ours, Generated, Other };
Origin originOf(const Include& include) {
    if (include.name.starts_with("ui_") || include.name.ends_with(".moc")) {
        return Origin::Generated;
    }
    const std::string top = include.name.substr(0, include.name.find('/'));
    const bool known = std::any_of(rooms.begin(), rooms.end(), [&](const Room& room) {
        return room.name.substr(0, room.name.find('/')) == top;
    });
    return known || !include.angled ? Origin::Ours : Origin::Other;
}

/// What is wrong with the includes of a file, one line each.
std::vector<std::string> faultsOf(const std::string& file, const std::string& text) {
    const auto room = roomOf(file);
    if (room == rooms.end()) {
        return {file + " lies in no room"};
    }
    std::vector<std::string> faults;
    for (const Include& include : includesOf(text)) {
        const auto used = roomOf(include.name);
        const bool allowed =
            used <= room && room->notUsed.find(used->name) == std::string_view::npos;
        if (originOf(include) == Origin::Ours && !allowed) {
            faults.emplace_back(file).append(" must not include ").append(include.name);
        }
    }
    return faults;
}

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Rooms, UseOnlyRoomsAboveThem) {
    const fs::path source = KORVANE_SOURCES;
    std::size_t files = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(source)) {
        const std::string extension = entry.path().extension().string();
        const bool isCode = extension == ".h" || extension == ".cpp" || extension == ".ui";
        EXPECT_TRUE(isCode || entry.is_directory() || extension == ".qrc" || extension == ".svg" ||
                    extension == ".txt")
            << entry.path() << " is read by no test";
        if (isCode) {
            ++files;
            const std::string name = entry.path().lexically_relative(source).generic_string();
            for (const std::string& fault : faultsOf(name, contentOf(entry.path()))) {
                ADD_FAILURE() << fault;
            }
        }
    }
    EXPECT_GT(files, 200U);
}

TEST(Rooms, TestsStandInFoldersOfTheSameNames) {
    const fs::path tests = KORVANE_TESTS;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(tests)) {
        const std::string name = entry.path().lexically_relative(tests).generic_string();
        if (entry.path().extension() == ".cpp" && !name.starts_with("support/") &&
            name != "RoomsTest.cpp") {
            EXPECT_NE(roomOf(name), rooms.end()) << name << " is built by no target";
        }
    }
}

TEST(Rooms, AWrongIncludeIsFound) {
    struct Case {
        const char* file;
        const char* text;
        bool wrong;
    };
    const Case cases[] = {
        {"render/scene/A.h", "#include \"render/math/B.h\"", false},
        {"render/scene/A.h", "#include \"render/scene/B.h\"\n#include <QString>", false},
        {"model/forms/A.cpp", "#include \"ui_A.h\"", false},
        {"render/scene/A.h", "#include \"render/software/B.h\"", true},
        {"model/records/A.h", "\n#include <vector>\n#include \"render/scene/B.h\"\n", true},
        {"model/records/A.h", "#include \"render/picture/B.h\"", true},
        {"model/records/A.h", "#include <render/scene/B.h>", true},
        {"model/records/A.h", "#include <GL/gl.h>", false},
        {"render/gl/A.cpp", "#include \"render/software/B.h\"", true},
        {"render/forms/A.ui", "<class>B</class><header>model/forms/B.h</header>", true},
        {"render/forms/A.ui", "<header location=\"local\">model/forms/B.h</header>", true},
        {"model/forms/A.ui", "<header>render/forms/B.h</header>", false},
        {"tool/A.cpp", "#include \"app/widgets/B.h\"", true},
        {"edit/forms/A.cpp", "#include \"B.h\"", true},
        {"edit/A.cpp", "", true},
        {"edit/news/A.cpp", "", true},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(!faultsOf(row.file, row.text).empty(), row.wrong) << row.file << ": " << row.text;
    }
}

} // namespace
} // namespace korvane::test
