#include "formats/check/Finding.h"

#include <algorithm>
#include <iterator>

namespace korvane {

namespace {

using enum FindingId;
constexpr FindingKind inReading = FindingKind::LostInReading;
constexpr FindingKind bySave = FindingKind::LostBySave;
constexpr FindingKind hazard = FindingKind::Hazard;

constexpr FindingRow rows[] = {
    {EndedEarly, inReading, "ended-early",
     "A number, a quotation mark or a brace is missing where one must follow. Reading stops\n"
     "there, and the rest of the file is ignored. First check the count before the list: if\n"
     "it is wrong, reading loses its place after the list."},
    {NotFinite, inReading, "not-finite",
     "A number is infinite, not a number (nan), or too large to store. Reading stops there,\n"
     "and the rest of the file is ignored. Look for a division by zero in the program that\n"
     "wrote the file."},
    {FileEnds, inReading, "file-ends",
     "The file ends inside a frame or an animation. It may be truncated, or closing braces\n"
     "may be missing. Everything read up to there is kept."},
    {NoFrame, inReading, "no-frame",
     "A model is its outermost frame, and the file has no frame. Put a frame around\n"
     "everything."},
    {CountWrong, inReading, "count-wrong",
     "The count before a list must match its number of elements. Extra elements are ignored,\n"
     "and so are numbers of a matrix after the sixteenth. If elements are missing, reading\n"
     "continues into what follows the list. Correct the count."},
    {NumbersBehindBrace, inReading, "numbers-behind-brace",
     "The numbers of a block start on the line after its keyword. Numbers on the keyword's\n"
     "line are ignored, and all lists of the block are misread. Break the line after the\n"
     "brace."},
    {BraceOnNextLine, inReading, "brace-on-next-line",
     "A keyword and its opening brace must be on the same line. Otherwise a frame or an\n"
     "animation is ignored, and a list stops the reading. Move the brace up."},
    {ClosedOnOneLine, inReading, "closed-on-one-line",
     "The line that opens this block also closes it, but that closing brace does not count:\n"
     "all lines up to the next closing brace belong to the block, and the name of a texture\n"
     "must be on a later line. Put each brace and each name on a line of its own. Animations\n"
     "refer to frames as {frm-NAME}."},
    {MeshOutsideFrame, inReading, "mesh-outside-frame",
     "Meshes are only read inside frames. Put a frame around the mesh."},
    {SecondRoot, inReading, "second-root",
     "A model has one outermost frame. Another one replaces the children, vertices and faces\n"
     "of the previous one. Put one frame around all of them."},
    {BasePoseAsFrame, inReading, "base-pose-as-frame",
     "Base poses are not read. Instead, the block becomes an empty frame with a strange name.\n"
     "Delete that frame, or remove the block from the file."},
    {BlockAsFrame, inReading, "block-as-frame",
     "A line that contains \"frame\" declares a frame, even in a comment or in the name of\n"
     "another block. Reword the line, or delete the resulting frame."},
    {BlockAsMesh, inReading, "block-as-mesh",
     "A line in a frame that contains \"mesh\" starts a mesh, even in a comment or in the name\n"
     "of another block. What follows is read as its numbers. Reword the line."},
    {FrameTooDeep, inReading, "frame-too-deep",
     "Frames nest at most 1000 levels below the outermost. Deeper frames are ignored."},
    {BlockLeftOut, inReading, "block-left-out",
     "Blocks of this kind, or blocks of this kind in this place, are neither read nor saved.\n"
     "A saved file always has the same camera, light and fog."},
    {NameCase, hazard, "name-case",
     "Frame names are read and saved in lower case. A program that looks up a frame by name\n"
     "should ignore letter case."},
    {NameOdd, hazard, "name-odd",
     "Exactly one space separates \"Frame\" from the name. The next character starts the name,\n"
     "even if it is another space or a brace. Give the frame a name after a single space."},
    {NameCut, inReading, "name-cut",
     "A frame name ends at a space, a tab, an opening brace or \"__\". Flag letters (e, 2, h\n"
     "and g) may follow \"__\"; the rest is ignored. Rename the frame."},
    {SecondMesh, inReading, "second-mesh",
     "A frame has one mesh. The lists of another mesh are appended to those of the first, so\n"
     "its faces refer to the wrong vertices. Put each mesh in a frame of its own."},
    {SecondList, inReading, "second-list",
     "A frame has one matrix, and a mesh one list of each kind. Of several matrices, the last\n"
     "one counts. Another list is appended to the first, and nothing refers to its elements.\n"
     "Remove the unwanted one."},
    {MaterialByName, inReading, "material-by-name",
     "A material list must contain the materials themselves. A name in braces, which refers\n"
     "to a material elsewhere, adds no slot, and the slots after it move up."},
    {TextureFolder, inReading, "texture-folder",
     "Only the part of a texture's name after the last \"/\" is kept. Put the file next to the\n"
     "model."},
    {TextureParameters, inReading, "texture-parameters",
     "Only the name of a texture is read. Cropping, repeats, scaling, projection and blending\n"
     "are ignored, and saving writes standard values instead."},
    {UnknownFrame, inReading, "unknown-frame",
     "An animation must refer to a frame of the model as {frm-NAME}, on a line of its own.\n"
     "Without a reference, its keys go to the frame of the previous animation; with an\n"
     "unknown name, to the last frame of the model."},
    {KeysJoined, inReading, "keys-joined",
     "A frame has one list of keys of one type. The keys of further lists are appended, and\n"
     "the type of the last list applies to all. Give a frame keys of one type: whole matrices\n"
     "combine rotation, scale and position."},
    {KeysBeforeFrame, inReading, "keys-before-frame",
     "Animations must come after the frames they refer to. Otherwise the outermost frame gets\n"
     "the keys, or they are lost with the frames that a later outermost frame replaces. Move\n"
     "the animations to the end of the file."},
    {BlockPassedOver, inReading, "block-passed-over",
     "In an animation, the line after an ignored block is skipped, so a block that it opens\n"
     "is not read. Move that block before the ignored one."},
    {NameNotSaved, bySave, "name-not-saved",
     "Reading a saved file would not fully restore a frame with this name. Rename the frame."},
    {KeysNotSaved, bySave, "keys-not-saved",
     "The keys of frames without a mesh are not saved. Give the frame a mesh (one vertex is\n"
     "enough), or keep the original file."},
    {FlagsNotSaved, bySave, "flags-not-saved",
     "The flags (e, 2, h and g) of frames without a mesh are not saved. They have no effect\n"
     "there."},
    {EmptyNotSaved, bySave, "empty-not-saved",
     "A face without corners, or a key without values, is saved in a form that stops the next\n"
     "reading, unless it is the last of its list: the rest of the saved file is lost. Remove\n"
     "it."},
    {IndexOutOfRange, hazard, "index-out-of-range",
     "An index is outside its list (indices start at 0). A face with such a vertex is not\n"
     "drawn; such a normal or texture coordinate is not used. Saving keeps the index."},
    {ListsDiffer, hazard, "lists-differ",
     "Normals, texture coordinates and vertex colours must cover every face, in the order of\n"
     "the faces. Faces without them are drawn flat or untextured."},
    {FewCorners, hazard, "few-corners",
     "A face needs at least three corners. With fewer, it is invisible in shaded views."},
    {NoArea, hazard, "no-area",
     "All corners of a face are at one point or on one line. The face is invisible, and has\n"
     "no direction for lighting. Remove it."},
    {NoNormals, hazard, "no-normals",
     "A mesh without normals is drawn with one direction per face, and never looks smooth.\n"
     "Export its normals."},
    {OpacityZero, hazard, "opacity-zero",
     "A material with opacity 0 is invisible where transparency is shown. Some programs write\n"
     "0 instead of 1. Set the opacity in the material editor."},
    {TextureMissing, hazard, "texture-missing",
     "The file of a texture was not found, neither as named nor next to the model. The\n"
     "material shows its plain colours."},
    {TextureSpelling, hazard, "texture-spelling",
     "The file of a texture was found only under a different spelling: in another letter\n"
     "case, with backslashes as separators, or without its folder. Other programs may not\n"
     "find it. Rename the file or the texture."},
    {TextureNotDecoded, hazard, "texture-not-decoded",
     "The file of a texture was found, but cannot be decoded. The material shows its plain\n"
     "colours. Save the picture as a TGA (uncompressed true colour), PIC or BMP file."},
    {TextureTooLarge, hazard, "texture-too-large",
     "A picture is too large to show, or all pictures of the model together are. The material\n"
     "shows its plain colours. Make the picture smaller."},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        if (rows[i].id != static_cast<FindingId>(i)) {
            return false;
        }
    }
    return std::size(rows) == findingKinds;
}
static_assert(inOrder(), "each id finds its row by its number");

} // namespace

std::span<const FindingRow> findingRows() {
    return rows;
}

const FindingRow& findingRow(FindingId id) {
    return rows[static_cast<std::size_t>(id)];
}

const FindingRow* findingRow(std::string_view name) {
    const auto* found = std::find_if(std::begin(rows), std::end(rows),
                                     [&](const FindingRow& row) { return row.name == name; });
    return found == std::end(rows) ? nullptr : found;
}

} // namespace korvane
