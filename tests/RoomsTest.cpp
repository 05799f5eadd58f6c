// Which part of the source may use which.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
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
    Room{"formats/check"},
    Room{"edit/history"},
    Room{"edit/clipboard"},
    Room{"edit/recovery"},
    Room{"render/scene"},
    Room{"render/drags"},
    Room{"render/picking"},
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

/// Whether what is included comes from our source. What stands in quotes does, unless the build
/// makes it; what stands in angle brackets does if its first folder is one of the table's.
bool isOurs(const std::string& name, bool angled) {
    if (name.starts_with("ui_") || name.ends_with(".moc")) {
        return false;
    }
    const std::string top = name.substr(0, name.find('/'));
    return !angled || std::any_of(rooms.begin(), rooms.end(), [&](const Room& room) {
        return room.name.substr(0, room.name.find('/')) == top;
    });
}

/// Those that a source file, or a form made with the designer, includes of our own.
std::vector<std::string> includesOf(const std::string& text) {
    std::vector<std::string> found;
    for (const auto& [keyword, marks] :
         {std::pair("#include", "\"\""), {"#include", "<>"}, {"<header", "><"}}) {
        for (std::size_t at = text.find(keyword); at < text.size();
             at = text.find(keyword, at + 1)) {
            const std::size_t open = text.find(marks[0], at);
            const std::size_t close = text.find(marks[1], open + 1);
            const std::string name = text.substr(open + 1, close - open - 1);
            const bool onLine = open < close && close < text.find('\n', at);
            if (onLine && isOurs(name, marks[0] == '<')) {
                found.push_back(name);
            }
        }
    }
    return found;
}

/// What is wrong with the includes of a file, one line each.
std::vector<std::string> faultsOf(const std::string& file, const std::string& text) {
    const auto room = roomOf(file);
    if (room == rooms.end()) {
        return {file + " lies in no room"};
    }
    std::vector<std::string> faults;
    for (const std::string& include : includesOf(text)) {
        const auto used = roomOf(include);
        if (used > room || room->notUsed.find(used->name) != std::string_view::npos) {
            faults.emplace_back(file).append(" must not include ").append(include);
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
            !name.starts_with("program/") && name != "RoomsTest.cpp") {
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
