#include "formats/check/BlockCheck.h"

#include "formats/xsi/XsiWriter.h"

namespace korvane {

bool BlockCheck::takeSkippedBlock(const TextLine& line, bool closingLost) {
    const bool closed = line.text.find('}') != std::string_view::npos;
    const TextLine named = closed ? line : naming(line);
    if (named.place != line.place) {
        const std::string keyword = folded(firstWord(named.text));
        if (keyword == "frame" || keyword == "animation" || keyword == "animationset") {
            findings_.add(FindingId::BraceOnNextLine, line.place,
                          "The brace is on the line after " + quoted(trimmed(named.text)) +
                              "; the whole block is ignored");
            return true;
        }
    }
    if (closingLost && closed) {
        findings_.add(FindingId::ClosedOnOneLine, line.place,
                      "Everything after " + quoted(trimmed(line.text)) +
                          " is ignored, up to the next closing brace");
        return true;
    }
    if (!closed || !firstWord(named.text).empty()) {
        leaveOut(firstWord(named.text), named.place);
    }
    return false;
}

void BlockCheck::leaveOut(std::string_view name, TextPlace place) {
    leftOut_[folded(name)].meet(place, name);
}

/// Returns the line that names the block: `line`, or the one above if `line` has only a brace. If
/// the line above is the header or holds braces, the block has no name, and `line` is returned.
TextLine BlockCheck::naming(const TextLine& line) const {
    if (!firstWord(line.text).empty()) {
        return line;
    }
    const TextLine above = lineAbove(bytes_, line);
    const bool named = above.place > 0 && above.text.find_first_of("{}") == std::string_view::npos;
    return named ? above : line;
}

void BlockCheck::takeLooseBlock(const TextLine& line) {
    if (line.place < looseEnd_) {
        return; // inside a block that was reported
    }
    const TextLine name = naming(line);
    const std::string word = folded(firstWord(name.text));
    if (word == "header" || word == "template") {
        return;
    }
    looseEnd_ = blockEnd(bytes_, line);
    if (word == "mesh") {
        findings_.add(FindingId::MeshOutsideFrame, name.place,
                      "A mesh outside all frames is ignored");
        return;
    }
    // saving writes these standard blocks again, so nothing is lost
    const std::string_view written = bytes_.substr(name.place, looseEnd_ - name.place);
    std::string block(written.substr(0, 2 * savedPreamble().size()));
    std::erase(block, '\r');
    if (savedPreamble().find(block) == std::string_view::npos) {
        leaveOut(firstWord(name.text), name.place);
    }
}

void BlockCheck::takeFalseFrame(const TextLine& line, std::string_view frameName) {
    const std::string_view word = firstWord(line.text);
    FalseFrames& met = falseFrames_[folded(word)];
    if (met.lines.count == 0) {
        met.frameName = frameName;
    }
    met.lines.meet(line.place, word);
}

void BlockCheck::finish() {
    for (const auto& [word, met] : falseFrames_) {
        const bool basePose = word.find("framebaseposematrix") != std::string::npos;
        findings_.add(basePose ? FindingId::BasePoseAsFrame : FindingId::BlockAsFrame,
                      met.lines.first,
                      met.lines.names() + " is read as frame " + quoted(met.frameName));
    }
    for (const auto& [word, met] : leftOut_) {
        findings_.add(FindingId::BlockLeftOut, met.first,
                      (word.empty() ? "A block without a name" + andMore(met.count)
                                    : "Block " + met.names()) +
                          " is ignored");
    }
}

} // namespace korvane
