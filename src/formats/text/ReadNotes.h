#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// What a reading tells beside the model: where things began, and what it left out.
enum class NoteKind : std::uint8_t {
    TopFrame,     ///< an outermost frame is declared; what an earlier one held is dropped
    Frame,        ///< a frame is declared within another
    FrameEnd,     ///< the last frame that is declared and not ended ends
    TooDeep,      ///< a frame is skipped, as too many are around it
    Matrix,       ///< the matrix of the frame that has not ended
    Mesh,         ///< this and the next lists are those of the frame that has not ended
    MaterialList, ///< the list of slots
    Normals,
    TexCoords,
    VertexColors,
    ListEnd,         ///< the numbers that are read of the block noted last end here
    Material,        ///< a material begins
    MaterialEnd,     ///< `value` is its place in the material table
    MaterialName,    ///< a slot that only names a material, and is left out
    MaterialMissing, ///< a list has fewer materials than it tells, and is closed
    MaterialListEnd, ///< what follows up to the end of the list is left out
    Texture,         ///< a texture block begins
    Animation,       ///< an animation begins, or a section of them
    AnimationName,   ///< an animation names a frame; `value` is 0 if there is none of that name
    Keys,            ///< a list of keys begins; `value` is the frame that gets them, in pre-order
    LeftOut,    ///< a block that nothing is read of begins within what is read; `value` is 1 if
                ///< a closing brace in the same line does not count
    PassedOver, ///< a line behind such a block is not looked at, though it opens a block
    LooseBlock, ///< the same at the top level, where its lines are passed over one by one
    Unclosed,   ///< the text ends before the frame or animation section is closed
    EndedEarly, ///< an extraction failed; `value` is the character looked for, 0 for a number
};

/// `left` is how many bytes of the text were left behind the line that is told of. EndedEarly and
/// ListEnd tell of what these bytes begin with.
struct ReadNote {
    NoteKind kind = NoteKind::TopFrame;
    std::size_t left = 0;
    std::int32_t value = 0;
};

using ReadNotes = std::vector<ReadNote>;

} // namespace korvane
