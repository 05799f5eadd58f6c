#include "formats/check/SaveCheck.h"

#include "formats/xsi/FrameNames.h"
#include "formats/xsi/XsiReader.h"
#include "formats/xsi/XsiWriter.h"
#include "model/document/ModelCounts.h"
#include "model/records/FrameWalk.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace korvane {

namespace {

/// Lists what a saved file loses of a frame, by saving and rereading a small model with such a
/// frame.
std::string lostWith(const FrameRecord& frame, bool root) {
    FrameRecord small;
    small.Name = frame.Name;
    small.Emissive = frame.Emissive;
    small.RenderBackwards = frame.RenderBackwards;
    small.KV2Animated = frame.KV2Animated;
    small.GFlag = frame.GFlag;
    small.HasMesh = frame.HasMesh;
    small.Mesh.Vertices.resize(1);
    small.HasAnimation = frame.HasAnimation;
    small.AnimationKeys.resize(1);
    ModelDocument model;
    if (root) {
        model.Root = std::move(small);
    } else {
        model.Root.Name.assign(1, 'a'); // g++ 12 warns of an overflow that a literal cannot cause
        model.Root.Children.push_back(std::move(small));
    }
    std::string text;
    writeXsi(model, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    ModelDocument again;
    readXsi(TextScanner(text), again);
    const FrameRecord none;
    const FrameRecord& back = root                          ? again.Root
                              : again.Root.Children.empty() ? none
                                                            : again.Root.Children.front();
    std::string lost;
    for (const auto& [is, part] :
         {std::pair(back.Name != frame.Name, "name"),
          std::pair(frame.HasMesh && (!back.HasMesh || back.Mesh.Vertices.size() != 1), "mesh"),
          std::pair(frame.HasMesh && flagSuffix(back) != flagSuffix(frame), "flags"),
          std::pair(frame.HasMesh && frame.HasAnimation && !back.HasAnimation, "keys")}) {
        lost += is ? std::string(lost.empty() ? "" : ", ") + part : "";
    }
    return lost;
}

void checkName(const FrameRecord& frame, const NameUse& use, TextPlace place,
               FindingList& findings) {
    const QString reason = lostNameReason(frame.Name, use);
    if (reason.isEmpty()) {
        return;
    }
    std::string text = "Frame " + quoted(frame.Name) +
                       " is not fully restored from a saved file: its name " + reason.toStdString();
    if (!findings.isFull(FindingId::NameNotSaved)) {
        const std::string lost = lostWith(frame, use.root);
        text += lost.empty() ? "" : " (lost: " + lost + ")";
    }
    findings.add(FindingId::NameNotSaved, place, std::move(text));
}

/// Reports the empty entries of a list. Saving writes one separator too many after each, which is
/// harmless only after the last.
template <class List, class IsEmpty>
void checkEmpty(const List& list, IsEmpty isEmpty, TextPlace place, const std::string& entry,
                const char* lacks, FindingList& findings) {
    std::size_t first = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < list.size(); ++i) {
        if (isEmpty(list[i])) {
            first = count++ == 0 ? i : first;
        }
    }
    if (count > 0) {
        findings.add(FindingId::EmptyNotSaved, place,
                     entry + ' ' + std::to_string(first) + andMore(count) + " has no " + lacks +
                         ": reading a saved file stops there");
    }
}

void checkEmptyEntries(const FrameRecord& frame, const FramePlaces& places, FindingList& findings) {
    const MeshRecord& mesh = frame.Mesh;
    const std::string of = " of frame " + quoted(frame.Name);
    const auto checkPolygons = [&](const PolygonList& list, TextPlace place, const char* kind) {
        checkEmpty(
            list, [](const auto& corners) { return corners.empty(); }, place,
            std::string("In the ") + kind + of + ", face", "corners", findings);
    };
    checkPolygons(mesh.Faces, places.mesh, "mesh");
    if (mesh.HasNormals) {
        checkPolygons(mesh.NormalFaces, places.normals, "normals");
    }
    if (mesh.HasTexCoords) {
        checkPolygons(mesh.TexCoordFaces, places.texCoords, "texture coordinates");
    }
    if (mesh.HasVertexColors) {
        checkPolygons(mesh.VertexColorFaces, places.vertexColors, "vertex colours");
    }
    if (frame.HasAnimation) {
        checkEmpty(
            frame.AnimationKeys, [](const AnimationKeyRecord& key) { return key.Values.empty(); },
            places.keys, "In the keys" + of + ", key", "values", findings);
    }
}

} // namespace

void checkSaving(const ModelDocument& document, const ReadPlaces& places, FindingList& findings) {
    std::size_t number = 0;
    NameUses uses;
    for (FrameWalk walk(document.Root); !walk.done(); walk.next(), ++number) {
        const FrameRecord& frame = walk.frame();
        const FramePlaces place =
            number < places.frames.size() ? places.frames[number] : FramePlaces();
        const NameUse use = uses.next(frame, walk.depth() == 0);
        if (place.frame != nowhere) { // a file without frames leaves the root unnamed
            checkName(frame, use, place.frame, findings);
        }
        if (frame.HasMesh) {
            checkEmptyEntries(frame, place, findings);
        }
        if (!frame.HasMesh && frame.HasAnimation) {
            findings.add(FindingId::KeysNotSaved, place.keys,
                         "Frame " + quoted(frame.Name) + " has no mesh: its " +
                             (frame.AnimationKeys.empty()
                                  ? "animation is"
                                  : counted(frame.AnimationKeys.size(), "key is", "keys are")) +
                             " not saved");
        }
        if (!frame.HasMesh &&
            (frame.Emissive || frame.RenderBackwards || frame.KV2Animated || frame.GFlag)) {
            findings.add(FindingId::FlagsNotSaved, place.frame,
                         "Frame " + quoted(frame.Name) + " has no mesh: its flags are not saved");
        }
    }
}

} // namespace korvane
