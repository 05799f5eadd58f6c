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
     "A number, a quotation mark or a brace that must follow does not. Reading ends there,\n"
     "and the rest of the file is left out. Look at the count in front of the list first:\n"
     "where it is wrong, reading goes astray behind the list."},
    {NotFinite, inReading, "not-finite",
     "A number is infinite, no number at all (nan), or too large to be kept. Reading ends\n"
     "there, and the rest of the file is left out. Look for a division by zero in the\n"
     "program that wrote the file."},
    {FileEnds, inReading, "file-ends",
     "The file ends within a frame or an animation. It may be cut short, or lack closing\n"
     "braces. What was read so far is kept."},
    {NoFrame, inReading, "no-frame",
     "A model is what the outermost frame holds, and there is none in the file. Put a frame\n"
     "around everything."},
    {CountWrong, inReading, "count-wrong",
     "The count in front of a list must tell how many elements follow. Those beyond it are\n"
     "left out, as are numbers of a matrix beyond the sixteenth. Where elements are missing,\n"
     "reading takes what stands behind the list for them. Correct the count."},
    {NumbersBehindBrace, inReading, "numbers-behind-brace",
     "The numbers of a block are read from the line below its keyword on. What stands in\n"
     "the keyword's own line is left out, and all lists of the block go astray. Break the\n"
     "line behind the brace."},
    {BraceOnNextLine, inReading, "brace-on-next-line",
     "A keyword and its opening brace must share a line. Otherwise a frame or an animation\n"
     "is left out, and a list ends the reading. Move the brace up."},
    {ClosedOnOneLine, inReading, "closed-on-one-line",
     "This block is closed in the line that opens it, where the closing brace does not count:\n"
     "all lines up to the next closing brace belong to the block, and the name of a texture\n"
     "is looked for below. Put each brace and each name on a line of its own. Animations\n"
     "name frames as {frm-NAME}."},
    {MeshOutsideFrame, inReading, "mesh-outside-frame",
     "Meshes are read within frames only. Put a frame around the mesh."},
    {SecondRoot, inReading, "second-root",
     "A model has one outermost frame. A further one replaces the children, vertices and\n"
     "faces of the one before. Put one frame around all of them."},
    {BasePoseAsFrame, inReading, "base-pose-as-frame",
     "Base poses are not read. The block becomes an empty frame of a strange name instead.\n"
     "Delete that frame, or remove the block from the file."},
    {BlockAsFrame, inReading, "block-as-frame",
     "A line that holds \"frame\" declares a frame, even in a remark or in the name of\n"
     "another block. Reword the line, or delete the frame that it became."},
    {BlockAsMesh, inReading, "block-as-mesh",
     "A line in a frame that holds \"mesh\" begins a mesh, even in a remark or in the name of\n"
     "another block. What follows is read as its numbers. Reword the line."},
    {FrameTooDeep, inReading, "frame-too-deep",
     "Frames nest at most 1000 deep below the outermost. Those further down are left out."},
    {BlockLeftOut, inReading, "block-left-out",
     "Nothing is read of blocks of this kind, or of this kind in this place, and saving does\n"
     "not write them. Saved files have a camera, a light and a fog of their own, always the\n"
     "same."},
    {NameCase, hazard, "name-case",
     "Names of frames are kept in small letters, and saved so. Whoever looks up a frame by\n"
     "its name should not tell capitals from small letters."},
    {NameOdd, hazard, "name-odd",
     "One blank stands between \"Frame\" and the name. Whatever follows it begins the name,\n"
     "even a further blank or a brace. Give the frame a name, and no second blank."},
    {NameCut, inReading, "name-cut",
     "A frame's name ends at a blank, a brace or \"__\", behind which stand the letters of\n"
     "flags (e, 2, h and g). The rest is left out. Rename the frame."},
    {SecondMesh, inReading, "second-mesh",
     "A frame has one mesh. The lists of a further one are appended to those of the first,\n"
     "so that its faces lead to the wrong vertices. Give each mesh a frame."},
    {SecondList, inReading, "second-list",
     "A frame has one matrix, and a mesh one list of each kind. Of several matrices the last\n"
     "holds. A further list is appended to the first, where nothing leads to it. Remove the\n"
     "one that is not meant."},
    {MaterialByName, inReading, "material-by-name",
     "A list of materials must hold the materials themselves. A name in braces, of a\n"
     "material that stands elsewhere, adds no slot, and the slots behind it move up."},
    {TextureFolder, inReading, "texture-folder",
     "Only what follows the last \"/\" of a texture's name is kept. Put the file beside the\n"
     "model."},
    {TextureParameters, inReading, "texture-parameters",
     "Of a texture only its name is read. Cropping, repeats, scaling, projection and\n"
     "blending are left out, and saving writes standard values in their place."},
    {UnknownFrame, inReading, "unknown-frame",
     "An animation must name a frame of the model as {frm-NAME}, on a line of its own.\n"
     "Otherwise its keys go to the frame of the animation before, or where the name is\n"
     "unknown to the last frame of the model."},
    {KeysJoined, inReading, "keys-joined",
     "A frame has one list of keys of one type. The keys of further lists are appended, and\n"
     "the type of the last holds for all. Give a frame keys of one type: whole matrices\n"
     "tell rotation, scale and position at once."},
    {KeysBeforeFrame, inReading, "keys-before-frame",
     "Animations must stand behind the frames that they name. Before them the outermost\n"
     "frame gets the keys, or they are left out with the frames that a later outermost\n"
     "frame replaces. Move the animations to the end of the file."},
    {BlockPassedOver, inReading, "block-passed-over",
     "In an animation, the line behind a block that is left out is passed over, and nothing\n"
     "is read of the block that it opens. Move that block in front of the other one."},
    {NameNotSaved, bySave, "name-not-saved",
     "A file saved with this name would not give the frame back. Rename the frame."},
    {KeysNotSaved, bySave, "keys-not-saved",
     "Saving leaves out the keys of frames without a mesh. Give the frame a mesh (one\n"
     "vertex will do), or keep the original file."},
    {FlagsNotSaved, bySave, "flags-not-saved",
     "Saving leaves out the flags (e, 2, h and g) of frames without a mesh. They have no\n"
     "effect there."},
    {EmptyNotSaved, bySave, "empty-not-saved",
     "A face without corners, or a key without values, is saved so that reading ends behind\n"
     "it, unless it is the last of its list: the rest of the saved file is lost. Remove it."},
    {IndexOutOfRange, hazard, "index-out-of-range",
     "An index leads past the end of its list (both are counted from 0). A face with a bad\n"
     "vertex is not drawn, a bad normal or texture coordinate is not used. Saving keeps\n"
     "the index as it is."},
    {ListsDiffer, hazard, "lists-differ",
     "Normals, texture coordinates and vertex colours must be told for every face, in the\n"
     "order of the faces. Faces without them are drawn flat or without texture."},
    {FewCorners, hazard, "few-corners",
     "A face needs three corners. One with fewer is not seen in shaded views."},
    {NoArea, hazard, "no-area",
     "The corners of a face lie in one point or on one line. It is not seen, and has no\n"
     "direction for the light. Remove it."},
    {NoNormals, hazard, "no-normals",
     "A mesh without normals is drawn with one direction a face, and never looks smooth.\n"
     "Have normals exported."},
    {OpacityZero, hazard, "opacity-zero",
     "A material of opacity 0 is not seen where transparency is shown. Some programs write\n"
     "0 for 1. Set the opacity in the material editor."},
    {TextureMissing, hazard, "texture-missing",
     "There is no file for a texture, neither as named nor beside the model. The material\n"
     "shows its plain colours."},
    {TextureSpelling, hazard, "texture-spelling",
     "The file of a texture is found by another spelling than that in the model: other\n"
     "capitals, backslashes, or without its folder. Other programs may not find it. Rename\n"
     "the file or the texture."},
    {TextureNotDecoded, hazard, "texture-not-decoded",
     "There is a file for a texture, but no picture can be made of it. The material shows\n"
     "its plain colours. Save the picture as a TGA (true colour, uncompressed), PIC or BMP\n"
     "file."},
    {TextureTooLarge, hazard, "texture-too-large",
     "A picture is larger than what is shown, or the pictures of the model are together.\n"
     "The material shows its plain colours. Make the picture smaller."},
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
