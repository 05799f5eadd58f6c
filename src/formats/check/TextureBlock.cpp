#include "formats/check/TextureBlock.h"

#include "formats/xsi/XsiMaterialWriter.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>
#include <vector>

namespace korvane {

namespace {

/// Returns the numbers in a text, at most `max`, whatever separates them.
std::vector<float> numbersIn(std::string_view text, std::size_t max) {
    std::vector<float> numbers;
    const char* next = text.data();
    const char* end = next + text.size();
    while (next != end && numbers.size() < max) {
        float number = 0.0F;
        const auto [stop, error] = std::from_chars(next, end, number);
        if (error == std::errc()) {
            numbers.push_back(number);
            next = stop;
        } else {
            ++next;
        }
    }
    return numbers;
}

/// Returns the numbers that saving writes after a texture's name.
std::vector<float> savedNumbers() {
    std::string text;
    const TextSink sink = [&text](std::string_view piece) {
        text += piece;
        return true;
    };
    TextOutput out(sink);
    MaterialRecord material;
    material.HasTexture = true;
    writeMaterial(out, 0, material, false);
    out.finish();
    return numbersIn(std::string_view(text).substr(text.rfind('"') + 1), text.size());
}

} // namespace

TextureBlock readTextureBlock(std::string_view text) {
    const std::size_t open = text.find('"');
    const std::size_t close = open == std::string_view::npos ? open : text.find('"', open + 1);
    if (close == std::string_view::npos) {
        return {};
    }
    static const std::vector<float> saved = savedNumbers();
    const std::string_view behind = text.substr(close + 1);
    const auto numbers = numbersIn(behind.substr(0, behind.find('}')), saved.size() + 1);
    return {true, text.substr(open + 1, close - open - 1),
            numbers.size() <= saved.size() &&
                std::equal(numbers.begin(), numbers.end(), saved.begin())};
}

} // namespace korvane
