#include "support/TextModel.h"

namespace korvane {
namespace {

constexpr std::string_view frames = "frame frm-r {\n frame frm-a__h {\n }\n frame frm-b {\n }\n"
                                    " frame frm-a {\n }\n}\n";

std::string keys(int type, std::string_view list) {
    return "SI_AnimationKey {\n" + std::to_string(type) + ";\n" + std::string(list) + "\n}\n";
}

/// Returns "name:type:times" for each animated frame in pre-order.
std::string animated(std::string_view text) {
    const ModelDocument document = test::readXsiBody(std::string(frames) + std::string(text));
    std::string result;
    const auto add = [&result](const FrameRecord& frame, const std::string& name) {
        if (frame.HasAnimation) {
            result += name + ":" + std::to_string(frame.AnimationKeyType) + ":";
            for (const AnimationKeyRecord& key : frame.AnimationKeys) {
                result += std::to_string(key.Time) + "/" + std::to_string(key.Values.size()) + ",";
            }
            result += " ";
        }
    };
    add(document.Root, "r");
    const char* names[] = {"a1", "b", "a2"};
    for (std::size_t i = 0; i < document.Root.Children.size(); ++i) {
        add(document.Root.Children[i], names[i]);
    }
    return result;
}

TEST(Animation, KeysGoToTheFrameNamed) {
    const std::string two = keys(1, "2;\n 0; 3; 1, 2, 3;;,\n 10; 3; 4, 5, 6;;;");
    const struct {
        std::string text;
        const char* expected;
    } rows[] = {
        {"AnimationSet {\n Animation anim-b {\n {frm-b}\n" + two + " }\n}\n", "b:1:0/3,10/3, "},
        // the first of that name, whatever its suffix; an unknown name leads to the last frame
        {"AnimationSet {\n Animation x {\n {frm-A__h}\n" + two + " }\n}\n", "a1:1:0/3,10/3, "},
        {"AnimationSet {\n Animation x {\n {frm-zzz}\n" + two + " }\n}\n", "a2:1:0/3,10/3, "},
        // without a reference, the root or the frame of the previous animation
        {"AnimationSet {\n Animation x {\n" + two + " }\n}\n", "r:1:0/3,10/3, "},
        {"AnimationSet {\n Animation x {\n {frm-b}\n" + two + " }\n Animation y {\n" +
             keys(2, "1;\n5;1;9;;;") + " }\n}\n",
         "b:2:0/3,10/3,5/1, "},
        // a second set, and blocks without meaning
        {"AnimationSet {\n Animation x {\n {frm-b}\n" + two +
             " Options {\n 1;\n }\n }\n Other {\n {frm-b}\n }\n}\n"
             "AnimationSet {\n Animation y {\n {frm-a}\n" +
             keys(0, "1;\n7;12;1,2,3,4,5,6,7,8,9,10,11,12;;;") + " }\n}\n",
         "a1:0:7/12, b:1:0/3,10/3, "},
        {"template AnimationSet {\n [Animation]\n}\n", ""},
        // a reference without the prefix is skipped as a block, and the keys with it
        {"AnimationSet {\n Animation x {\n {b}\n" + two + " }\n}\n", ""},
        // frames that were replaced are forgotten
        {"AnimationSet {\n Animation x {\n {frm-b}\n" + two +
             " }\n}\nframe frm-n {\n}\nAnimationSet {\n Animation y {\n" + keys(2, "1;\n3;1;1;;;") +
             " }\n}\n",
         "r:2:3/1, "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(animated(row.text), row.expected) << row.text;
    }
}

} // namespace
} // namespace korvane
