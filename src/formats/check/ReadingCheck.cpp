#include "formats/check/ReadingCheck.h"

#include "formats/check/BlockCheck.h"
#include "formats/check/EarlyEnd.h"
#include "formats/check/ListCheck.h"
#include "formats/check/TextLines.h"
#include "formats/check/TextureBlock.h"
#include "formats/xsi/XsiFrameReader.h"
#include "model/records/FrameWalk.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

class ReadingCheck {
  public:
    ReadingCheck(std::string_view bytes, const ModelDocument& document, FindingList& findings);

    ReadPlaces check(const ReadNotes& notes);

  private:
    void take(const ReadNote& note);
    void takeLine(const ReadNote& note, const TextLine& line);
    void takeList(NoteKind kind, const TextLine& line);
    void takeFrame(const ReadNote& note, const TextLine& line);
    void takeDeclaration(const TextLine& line, const std::string& text);
    void takeMesh(const TextLine& line);
    void takeMaterial(const ReadNote& note, const TextLine& line);
    void keepOpen();
    void takeUnclosed();
    void takeOpening(const TextLine& line);
    void takeTexture(TextPlace behind, const TextLine& line);
    void takeAnimation(const ReadNote& note, const TextLine& line);
    void takeKeys(const ReadNote& note, const TextLine& line);
    void takeEarlyKeys(bool toRoot);
    void reportMaterialNames();
    void reportRepeated();

    /// The places of the frame that the next list belongs to.
    FramePlaces& current() { return places_.frames[open_.empty() ? 0 : open_.back()]; }
    [[nodiscard]] std::string frameName(std::size_t number) const;
    /// Names that frame in findings.
    [[nodiscard]] std::string here() const {
        return "frame " + quoted(frameName(open_.empty() ? 0 : open_.back()));
    }

    std::string_view bytes_;
    FindingList& findings_;
    ReadPlaces places_;
    std::vector<const FrameRecord*> frames_; ///< those of the document, in pre-order
    std::vector<std::size_t> open_;          ///< the frames not yet closed, by number
    bool lastTree_ = false;                  ///< the current frames are those of the document
    std::size_t topFrames_ = 0;
    std::size_t topFramesMet_ = 0;
    std::vector<TextPlace> roots_; ///< the outermost frames, except replaced false ones
    TextPlace material_ = nowhere;
    bool materialMissing_ = false; ///< the current list is known to have too few
    TextPlace animation_ = nowhere;
    bool animationReported_ = false;
    bool animationFault_ = false; ///< as FramePlaces::braceFault
    bool animationKnown_ = false; ///< it names an existing frame
    std::string_view animationName_;
    Repeated tooDeep_, nameCase_, materialNames_, textureParameters_, unclosed_;
    std::size_t cut_ = none; ///< the innermost frame still open at the end of the text
    bool endedEarly_ = false;
    BlockCheck blocks_;
    ListCheck lists_;

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
};

ReadingCheck::ReadingCheck(std::string_view bytes, const ModelDocument& document,
                           FindingList& findings)
    : bytes_(bytes), findings_(findings), blocks_(bytes, findings), lists_(bytes, findings) {
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        frames_.push_back(&walk.frame());
    }
    places_.frames.resize(1);
    places_.materials.resize(document.Materials.size(), nowhere);
}

ReadPlaces ReadingCheck::check(const ReadNotes& notes) {
    topFrames_ = static_cast<std::size_t>(
        std::count_if(notes.begin(), notes.end(),
                      [](const ReadNote& note) { return note.kind == NoteKind::TopFrame; }));
    lastTree_ = topFrames_ == 0;
    for (const ReadNote& note : notes) {
        take(note);
    }
    reportMaterialNames();
    reportRepeated();
    return std::move(places_);
}

void ReadingCheck::take(const ReadNote& note) {
    const TextPlace behind = bytes_.size() - std::min(note.left, bytes_.size());
    switch (note.kind) {
    case NoteKind::FrameEnd:
        if (!open_.empty()) {
            open_.pop_back();
        }
        break;
    case NoteKind::MaterialEnd:
        places_.materials.at(static_cast<std::size_t>(note.value)) =
            std::min(places_.materials.at(static_cast<std::size_t>(note.value)), material_);
        break;
    case NoteKind::Unclosed:
        takeUnclosed();
        break;
    case NoteKind::ListEnd:
        current().broken = (lists_.takeEnd(behind) && !open_.empty()) || current().broken;
        break;
    case NoteKind::MaterialListEnd:
        lists_.takeMaterialsEnd(behind, current().materials);
        break;
    case NoteKind::EndedEarly:
        endedEarly_ = true;
        if (cut_ < places_.frames.size()) {
            places_.frames[cut_].broken = true;
        }
        reportEarlyEnd(bytes_, behind, static_cast<char>(note.value), findings_);
        break;
    case NoteKind::Texture:
        takeTexture(behind, lineBefore(bytes_, behind));
        break;
    default:
        takeLine(note, lineBefore(bytes_, behind));
        break;
    }
}

/// Marks the two innermost open frames: a block that does not end where it seems to takes the
/// closing brace of its frame, and that frame takes the next one.
void ReadingCheck::keepOpen() {
    animationFault_ = open_.empty();
    for (std::size_t i = open_.size() - std::min<std::size_t>(open_.size(), 2); i < open_.size();
         ++i) {
        places_.frames[open_[i]].braceFault = true;
    }
}

/// Notes the frame or animation in which the text ends, unless a reported fault has kept it open.
void ReadingCheck::takeUnclosed() {
    if (open_.empty()) {
        if (!animationFault_) {
            unclosed_.meet(animation_, "an animation");
        }
        return;
    }
    cut_ = cut_ == none ? open_.back() : cut_;
    if (!current().braceFault) {
        unclosed_.meet(current().frame, here());
    }
}

/// Takes a note that is about a line.
void ReadingCheck::takeLine(const ReadNote& note, const TextLine& line) {
    switch (note.kind) {
    case NoteKind::TopFrame:
    case NoteKind::Frame:
        takeFrame(note, line);
        break;
    case NoteKind::TooDeep:
        tooDeep_.meet(line.place, "");
        break;
    case NoteKind::Mesh:
        takeMesh(line);
        break;
    case NoteKind::Matrix:
    case NoteKind::MaterialList:
    case NoteKind::Normals:
    case NoteKind::TexCoords:
    case NoteKind::VertexColors:
        takeList(note.kind, line);
        break;
    case NoteKind::Animation:
    case NoteKind::AnimationName:
        takeAnimation(note, line);
        break;
    case NoteKind::Keys:
        takeKeys(note, line);
        break;
    case NoteKind::LeftOut:
        if (note.left > 0) { // at the end of the text, nothing is lost
            if (blocks_.takeSkippedBlock(line, note.value != 0)) {
                keepOpen();
            }
        }
        break;
    case NoteKind::PassedOver:
        findings_.add(FindingId::BlockPassedOver, line.place,
                      quoted(trimmed(line.text)) +
                          " directly follows an ignored block, and is skipped");
        break;
    case NoteKind::LooseBlock:
        blocks_.takeLooseBlock(line);
        break;
    default:
        takeMaterial(note, line);
        break;
    }
}

std::string ReadingCheck::frameName(std::size_t number) const {
    return lastTree_ && number < frames_.size() ? frames_[number]->Name : std::string();
}

void ReadingCheck::takeFrame(const ReadNote& note, const TextLine& line) {
    const std::string text = folded(line.text);
    const bool declared = firstWord(text) == "frame";
    if (note.kind == NoteKind::TopFrame) {
        lastTree_ = ++topFramesMet_ == topFrames_;
        if (declared || lastTree_) {
            roots_.push_back(line.place); // replacing a false frame loses nothing
        }
        places_.frames.clear();
        open_.clear();
    }
    open_.push_back(places_.frames.size());
    places_.frames.emplace_back().frame = line.place;
    if (declared) {
        takeDeclaration(line, text);
        return;
    }
    blocks_.takeFalseFrame(line, parseFrameDeclaration(text).name);
}

/// `text` is the line in lower case.
void ReadingCheck::takeDeclaration(const TextLine& line, const std::string& text) {
    const FrameDeclaration declaration = parseFrameDeclaration(text);
    const std::string& name = declaration.name;
    const std::size_t begin =
        text.find("frame") + (text.find("frm-") != std::string::npos ? 10 : 6);
    const std::size_t end = std::min(begin + name.size(), text.size());
    if (!name.empty() && std::string_view(" \t{}").find(name.front()) != std::string_view::npos) {
        findings_.add(FindingId::NameOdd, line.place,
                      "The name of the frame begins with white space or a brace: " + quoted(name));
    }
    if (begin < end && line.text.substr(begin, end - begin) != name) {
        nameCase_.meet(line.place, line.text.substr(begin, end - begin));
    }
    std::string_view rest = std::string_view(text).substr(end);
    rest = rest.substr(0, rest.find('{'));
    const bool flags = rest.starts_with("__");
    const bool cut = rest.find_first_not_of(flags ? "_e2hg \t" : " \t") != std::string_view::npos;
    const std::size_t open = text.find('{', end);
    if (cut && rest.find('}') == std::string_view::npos &&
        rest.find("//") == std::string_view::npos) {
        findings_.add(FindingId::NameCut, line.place,
                      "The name of frame " + quoted(name) +
                          " is truncated: " + quoted(trimmed(rest)) + " is ignored");
    }
    if (open != std::string::npos && text.find('}', open) != std::string::npos) {
        findings_.add(FindingId::ClosedOnOneLine, line.place,
                      "Frame " + quoted(name) +
                          " is closed on the line that opens it, but continues to the next closing "
                          "brace");
        keepOpen();
    }
}

void ReadingCheck::takeOpening(const TextLine& line) {
    current().broken = lists_.takeOpening(line) || current().broken;
}

void ReadingCheck::takeMesh(const TextLine& line) {
    FramePlaces& frame = current();
    takeOpening(line);
    const std::string_view word = firstWord(line.text);
    if (folded(word) != "mesh") {
        findings_.add(FindingId::BlockAsMesh, line.place,
                      quoted(word) + " is read as a mesh of " + here());
    } else if (frame.mesh != nowhere) {
        findings_.add(FindingId::SecondMesh, line.place,
                      "Another mesh in " + here() +
                          ": its faces refer to the vertices of the first");
    }
    frame.secondMesh = frame.mesh != nowhere;
    frame.mesh = std::min(frame.mesh, line.place);
}

/// Takes the line that opens a frame's matrix, or a list that a mesh may have only once.
void ReadingCheck::takeList(NoteKind kind, const TextLine& line) {
    FramePlaces& frame = current();
    takeOpening(line);
    TextPlace& place = kind == NoteKind::Matrix         ? frame.matrix
                       : kind == NoteKind::MaterialList ? frame.materials
                       : kind == NoteKind::Normals      ? frame.normals
                       : kind == NoteKind::TexCoords    ? frame.texCoords
                                                        : frame.vertexColors;
    if (place != nowhere && !frame.braceFault && (kind == NoteKind::Matrix || !frame.secondMesh)) {
        findings_.add(FindingId::SecondList, line.place,
                      "Another " + quoted(firstWord(line.text)) + " in " + here() +
                          (kind == NoteKind::Matrix ? ": the previous one is ignored"
                                                    : " is appended to the previous one"));
    }
    if (kind == NoteKind::MaterialList) {
        reportMaterialNames();
        materialMissing_ = false;
    }
    place = line.place;
}

void ReadingCheck::takeMaterial(const ReadNote& note, const TextLine& line) {
    if (note.kind == NoteKind::Material) {
        material_ = line.place;
        takeOpening(line);
    } else if (note.kind == NoteKind::MaterialMissing) {
        if (!materialMissing_ && note.left > 0) { // the end of the text is reported elsewhere
            findings_.add(FindingId::CountWrong, current().materials,
                          "The list has fewer materials than its count; reading continues into "
                          "what follows");
            current().broken = true;
            keepOpen();
        }
        materialMissing_ = true;
    } else {
        const std::string_view text = line.text;
        const std::size_t open = text.find('{');
        const std::string_view inside = text.substr(std::min(open, text.size() - 1) + 1);
        materialNames_.meet(line.place, firstWord(inside.substr(0, inside.find('}'))));
        current().namedMaterials = true;
    }
}

/// Reports the named materials of one list together.
void ReadingCheck::reportMaterialNames() {
    if (materialNames_.count > 0) {
        findings_.add(FindingId::MaterialByName, materialNames_.first,
                      "Material " + materialNames_.names() +
                          " is only referenced by name, and adds no slot");
    }
    materialNames_ = {};
}

void ReadingCheck::takeTexture(TextPlace behind, const TextLine& line) {
    if (line.text.find('"') != std::string_view::npos) {
        findings_.add(FindingId::ClosedOnOneLine, line.place,
                      quoted(trimmed(line.text)) +
                          " is ignored: the texture name must be on a later line");
        keepOpen();
    }
    const TextureBlock block = readTextureBlock(bytes_.substr(behind));
    if (!block.named) {
        return; // reading ended there
    }
    const std::size_t folder = block.name.rfind('/');
    const std::string_view kept = block.name.substr(folder + 1);
    places_.textures.try_emplace(std::string(kept), line.place);
    if (folder != std::string_view::npos) {
        findings_.add(FindingId::TextureFolder, line.place,
                      "Texture " + quoted(block.name) + " is kept as " + quoted(kept) +
                          ", without its folder");
    }
    if (folded(line.text).find("si_texture2d") != std::string::npos && !block.standardValues) {
        textureParameters_.meet(line.place, kept);
    }
}

void ReadingCheck::takeAnimation(const ReadNote& note, const TextLine& line) {
    animation_ = line.place;
    if (note.kind == NoteKind::Animation) {
        animationKnown_ = animationReported_ = false;
        animationFault_ =
            animationFault_ && folded(line.text).find("animationset") == std::string::npos;
        animationName_ = {};
    } else {
        const std::size_t prefix = folded(line.text).find("frm-");
        const std::string_view name = line.text.substr(std::min(prefix, line.text.size() - 4) + 4);
        animationName_ = name.substr(0, std::min(name.find_first_of(" \t}"), name.find("__")));
        animationKnown_ = note.value != 0;
    }
}

void ReadingCheck::takeKeys(const ReadNote& note, const TextLine& line) {
    lists_.takeOpening(line);
    const auto number = static_cast<std::size_t>(note.value);
    if (!lastTree_) {
        takeEarlyKeys(number == 0);
        return;
    }
    if (!animationKnown_ && !animationReported_) {
        animationReported_ = true;
        findings_.add(FindingId::UnknownFrame, animation_,
                      (animationName_.empty() ? "An animation names no frame as {frm-NAME}"
                                              : "No frame is named " + quoted(animationName_)) +
                          ": the keys go to " + quoted(frameName(number)));
    }
    if (number >= places_.frames.size()) {
        return;
    }
    FramePlaces& frame = places_.frames[number];
    frame.keys = std::min(frame.keys, line.place);
    if (++frame.keyLists == 2) {
        findings_.add(FindingId::KeysJoined, line.place,
                      "Another key list for frame " + quoted(frameName(number)) +
                          " is appended to the first, and its type applies to both");
    }
}

/// Takes keys that come before the frames of the document: only those of the root are kept.
void ReadingCheck::takeEarlyKeys(bool toRoot) {
    const std::string root = frames_.front()->Name;
    if (animationReported_ || (toRoot && folded(animationName_) == root)) {
        return;
    }
    animationReported_ = true;
    findings_.add(FindingId::KeysBeforeFrame, animation_,
                  "The animation comes before the outermost frame " + quoted(root) +
                      (toRoot ? ", which gets its keys" : "; its keys are lost"));
}

void ReadingCheck::reportRepeated() {
    const auto report = [this](FindingId id, const Repeated& met, const std::string& text) {
        if (met.count > 0) {
            findings_.add(id, met.first, text);
        }
    };
    if (roots_.size() > 1) {
        findings_.add(FindingId::SecondRoot, roots_[1],
                      "Only the last of " + std::to_string(roots_.size()) + " outermost frames, " +
                          quoted(frameName(0)) + ", is kept");
    }
    report(FindingId::FrameTooDeep, tooDeep_,
           "Frames nested deeper than " + std::to_string(maxFrameDepth) + " levels are ignored");
    report(FindingId::NameCase, nameCase_,
           "The name of frame " + nameCase_.names() + " becomes lower case");
    report(FindingId::TextureParameters, textureParameters_,
           "Only the name of texture " + textureParameters_.names() + " is read");
    blocks_.finish();
    if (!endedEarly_) {
        report(FindingId::FileEnds, unclosed_, "The file ends inside " + unclosed_.name);
    }
    if (topFrames_ == 0 && !endedEarly_) {
        findings_.add(FindingId::NoFrame, nowhere, "The file has no frames");
    }
}

} // namespace

ReadPlaces checkReading(std::string_view bytes, const ReadNotes& notes,
                        const ModelDocument& document, FindingList& findings) {
    return ReadingCheck(bytes, document, findings).check(notes);
}

} // namespace korvane
