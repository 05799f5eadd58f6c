#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvane {

/// What a finding is about.
enum class FindingKind : std::uint8_t {
    LostInReading, ///< the model lacks something that the file has
    LostBySave,    ///< the model has it, a file saved from it would not
    Hazard,        ///< nothing is lost, but the model may not look or work as meant
};

enum class FindingId : std::uint8_t {
    EndedEarly,
    NotFinite,
    FileEnds,
    NoFrame,
    CountWrong,
    NumbersBehindBrace,
    BraceOnNextLine,
    ClosedOnOneLine,
    MeshOutsideFrame,
    SecondRoot,
    BasePoseAsFrame,
    BlockAsFrame,
    BlockAsMesh,
    FrameTooDeep,
    BlockLeftOut,
    NameCase,
    NameOdd,
    NameCut,
    SecondMesh,
    SecondList,
    MaterialByName,
    TextureFolder,
    TextureParameters,
    UnknownFrame,
    KeysJoined,
    KeysBeforeFrame,
    BlockPassedOver,
    NameNotSaved,
    KeysNotSaved,
    FlagsNotSaved,
    EmptyNotSaved,
    IndexOutOfRange,
    ListsDiffer,
    FewCorners,
    NoArea,
    NoNormals,
    OpacityZero,
    TextureMissing,
    TextureSpelling,
    TextureNotDecoded,
    TextureTooLarge,
};

inline constexpr std::size_t findingKinds =
    static_cast<std::size_t>(FindingId::TextureTooLarge) + 1;

/// What all findings of one id share.
struct FindingRow {
    FindingId id;
    FindingKind kind;
    std::string_view name;        ///< for the user: lower case and hyphens
    std::string_view explanation; ///< what it means and what to do, in a few lines
};

/// Something about a model that its maker may want to know.
struct Finding {
    FindingId id = FindingId::EndedEarly;
    std::size_t line = 0; ///< counted from 1; 0 if it concerns no line
    std::string text;     ///< short sentences, with names as the file has them

    bool operator==(const Finding&) const = default;
};

/// All rows, in the order of the ids.
[[nodiscard]] std::span<const FindingRow> findingRows();
[[nodiscard]] const FindingRow& findingRow(FindingId id);
/// Returns the row with that name, or null.
[[nodiscard]] const FindingRow* findingRow(std::string_view name);

/// Returns true if the finding reports something that a converted file lacks.
[[nodiscard]] inline bool isLoss(const Finding& finding) {
    return findingRow(finding.id).kind != FindingKind::Hazard;
}

} // namespace korvane
