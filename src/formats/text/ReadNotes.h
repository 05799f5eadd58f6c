#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// What a reader notes besides the model: where parts begin, and what it leaves out.
enum class NoteKind : std::uint8_t {
    TopFrame,     ///< an outermost frame begins; the contents of an earlier one are dropped
    Frame,        ///< a frame begins within another
    FrameEnd,     ///< the innermost open frame ends
    TooDeep,      ///< a frame is skipped because it is nested too deep
    Matrix,       ///< the matrix of the innermost open frame
    Mesh,         ///< the mesh of that frame, which the next lists belong to
    MaterialList, ///< the list of slots
    Normals,
    TexCoords,
    VertexColors,
    ListEnd,         ///< the numbers read from the block noted last end here
    Material,        ///< a material begins
    MaterialEnd,     ///< `value` is its index in the material table
    MaterialName,    ///< a slot only names a material, and is left out
    MaterialMissing, ///< a list ends with fewer materials than it announces
    MaterialListEnd, ///< what follows up to the end of the list is left out
    Texture,         ///< a texture block begins
    Animation,       ///< an animation begins, or a section of them
    AnimationName,   ///< an animation names a frame; `value` is 0 if there is no such frame
    Keys,            ///< a list of keys begins; `value` is the pre-order number of its frame
    LeftOut,    ///< a nested block begins that is not read; `value` is 1 if a closing brace in the
                ///< same line does not count
    PassedOver, ///< the line after such a block is ignored, though it opens a block
    LooseBlock, ///< a block at the top level that is not read, but skipped line by line
    Unclosed,   ///< the text ends before the frame or animation section is closed
    EndedEarly, ///< an extraction failed; `value` is the expected character, 0 for a number
};

/// `left` is the number of bytes after the line that the note is about. EndedEarly and ListEnd are
/// about the beginning of those bytes.
struct ReadNote {
    NoteKind kind = NoteKind::TopFrame;
    std::size_t left = 0;
    std::int32_t value = 0;
};

using ReadNotes = std::vector<ReadNote>;

} // namespace korvane
