#include "formats/xsi/FrameNames.h"

#include <algorithm>

namespace korvane {

namespace {

bool contains(std::string_view name, std::string_view text) {
    return name.find(text) != std::string_view::npos;
}

/// Returns true if the name's last "_" and the suffix's "__" end the name one character early.
/// (Only asked if the name itself has no "__".)
bool runsIntoSuffix(std::string_view name, const NameUse& use) {
    const std::size_t least = use.animated ? 1 : 2;
    return use.flags && name.size() >= least && name.back() == '_';
}

} // namespace

NameUse nameUse(const FrameRecord& frame, bool root) {
    return {root, frame.HasMesh, !flagSuffix(frame).empty(), frame.HasMesh && frame.HasAnimation,
            false};
}

NameUse NameUses::next(const FrameRecord& frame, bool root) {
    NameUse use = nameUse(frame, root);
    use.taken = !earlier_.insert(frame.Name).second;
    return use;
}

std::string flagSuffix(const FrameRecord& frame) {
    if (!frame.HasMesh ||
        (!frame.Emissive && !frame.RenderBackwards && !frame.KV2Animated && !frame.GFlag)) {
        return {};
    }
    std::string suffix = "__";
    suffix += frame.Emissive ? "e" : "";
    suffix += frame.RenderBackwards ? "2" : "";
    suffix += frame.KV2Animated ? "h" : "";
    suffix += frame.GFlag ? "g" : "";
    return suffix;
}

QString lostNameReason(std::string_view name, const NameUse& use) {
    if (name.empty()) {
        return QStringLiteral("is empty");
    }
    if (std::any_of(name.begin(), name.end(), [](char c) { return c >= 'A' && c <= 'Z'; })) {
        return QStringLiteral("contains a capital letter");
    }
    if (contains(name, "\n")) {
        return QStringLiteral("contains a line break");
    }
    // in a declaration, the first character always belongs to the name; in an animation it does not
    const std::string_view ends = name.substr(use.animated ? 0 : 1);
    if (ends.find_first_of(" \t") != std::string_view::npos) {
        return QStringLiteral("contains a space or a tab");
    }
    if (contains(name.substr(1), "{")) {
        return QStringLiteral("contains \"{\"");
    }
    if (use.animated && contains(name, "}")) {
        return QStringLiteral("contains \"}\" and the frame is animated");
    }
    if (contains(ends, "__")) {
        return QStringLiteral("contains \"__\"");
    }
    if (runsIntoSuffix(name, use)) {
        return QStringLiteral("ends with \"_\" and the frame has flags");
    }
    // keywords are found anywhere in a line; in its own declaration, the frame's comes first
    if (use.mesh && contains(name, "frame")) {
        return QStringLiteral("contains \"frame\" and the frame has a mesh");
    }
    if (!use.root && contains(name, "frametransformmatrix")) {
        return QStringLiteral("contains \"frametransformmatrix\"");
    }
    if (use.animated && use.taken) {
        return QStringLiteral("is also that of an earlier frame, which gets the animation");
    }
    // lines with "template" are skipped only at the top level
    if (use.root && contains(name, "template")) {
        return QStringLiteral("contains \"template\" and the frame is the outermost");
    }
    return {};
}

} // namespace korvane
