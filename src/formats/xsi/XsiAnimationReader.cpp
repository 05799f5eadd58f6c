#include "formats/xsi/XsiAnimationReader.h"

#include "model/records/AnimationKeyRecord.h"
#include "model/records/FrameWalk.h"
#include "model/records/PolygonList.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace korvane {

namespace {

constexpr std::string_view framePrefix = "frm-";

/// Returns the name after the prefix, up to a blank, a closing brace or the flag suffix.
std::string_view referencedName(std::string_view line) {
    const std::string_view rest = line.substr(line.find(framePrefix) + framePrefix.size());
    return rest.substr(0, std::min(rest.find_first_of(" \t}"), rest.find("__")));
}

} // namespace

void XsiAnimationReader::forgetFrames() {
    target_ = {&root_};
    framesByName_ = {}; // clear() would keep and visit every bucket
    lastFrame_ = {};
}

void XsiAnimationReader::readSection() {
    lines_.note(NoteKind::Animation);
    while (lines_.next()) {
        if (lines_.holds("animation")) {
            readAnimation();
        }
        skipUnknownBlock();
        if (lines_.holds('}')) {
            return;
        }
    }
    lines_.note(NoteKind::Unclosed);
}

/// If the current line opens a block, skips it and reads the line after it.
void XsiAnimationReader::skipUnknownBlock() {
    if (lines_.holds('{')) {
        lines_.note(NoteKind::LeftOut, 1);
        lines_.skipBlock();
        lines_.next();
        if (lines_.holds('{')) {
            lines_.note(NoteKind::PassedOver);
        }
    }
}

void XsiAnimationReader::readAnimation() {
    lines_.note(NoteKind::Animation);
    while (lines_.next()) {
        if (lines_.holds(framePrefix)) {
            chooseTarget();
            lines_.next();
        }
        if (lines_.holds("animationkey")) {
            readKeys();
        }
        skipUnknownBlock();
        if (lines_.holds('}')) {
            lines_.blankClosingBrace();
            return;
        }
    }
}

/// Makes the frame that the current line names the target. For an unknown name that is the last
/// frame of the tree, deliberately.
void XsiAnimationReader::chooseTarget() {
    if (lastFrame_.frame == nullptr) {
        for (FrameWalk walk(root_); !walk.done(); walk.next()) {
            lastFrame_ = {&walk.frame(), lastFrame_.frame == nullptr ? 0 : lastFrame_.number + 1};
            framesByName_.try_emplace(lastFrame_.frame->Name, lastFrame_);
        }
    }
    const auto found = framesByName_.find(referencedName(lines_.line()));
    const bool known = found != framesByName_.end();
    target_ = known ? found->second : lastFrame_;
    lines_.note(NoteKind::AnimationName, known ? 1 : 0);
}

void XsiAnimationReader::readKeys() {
    TextScanner& in = lines_.numbers();
    FrameRecord& target = *target_.frame;
    target.HasAnimation = true;
    lines_.note(NoteKind::Keys, target_.number);
    std::int32_t type = 0;
    if (in.integer(type)) {
        target.AnimationKeyType = type;
    }
    std::int32_t count = 0;
    if (in.separator() && in.integer(count) && in.separator()) {
        reserveMore(target.AnimationKeys, credible(count, in.remaining() / 6));
        for (std::int32_t i = 0; i < count; ++i) {
            AnimationKeyRecord key;
            if (!readKey(key)) {
                break;
            }
            target.AnimationKeys.push_back(std::move(key));
            in.separator();
            in.separator();
        }
    }
    lines_.note(NoteKind::ListEnd);
    lines_.skipToClosingBrace();
    lines_.blankClosingBrace();
}

bool XsiAnimationReader::readKey(AnimationKeyRecord& key) {
    TextScanner& in = lines_.numbers();
    std::int32_t count = 0;
    if (!(in.integer(key.Time) && in.separator() && in.integer(count))) {
        return false;
    }
    in.separator();
    key.Values.reserve(credible(count, in.remaining() / 2));
    for (std::int32_t i = 0; i < count; ++i) {
        float value = 0.0F;
        if (!in.real(value)) {
            return false;
        }
        key.Values.push_back(value);
        in.separator();
    }
    return true;
}

} // namespace korvane
