#include "formats/check/SaveCheck.h"

#include "formats/xsi/FrameNames.h"
#include "formats/xsi/XsiReader.h"
#include "formats/xsi/XsiWriter.h"
#include "model/records/FrameWalk.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace korvane {

namespace {

/// What a saved file does not give back of a frame: found by saving a small model with such a
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
        model.Root.Name = "a";
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

void checkName(const FrameRecord& frame, bool root, TextPlace place, FindingList& findings) {
    const QString reason = lostNameReason(frame.Name, nameUse(frame, root));
    if (reason.isEmpty()) {
        return;
    }
    std::string text = "Frame " + quoted(frame.Name) +
                       " does not come back from a saved file: its name " + reason.toStdString();
    if (!findings.isFull(FindingId::NameNotSaved)) {
        const std::string lost = lostWith(frame, root);
        text += lost.empty() ? "" : " (lost: " + lost + ")";
    }
    findings.add(FindingId::NameNotSaved, place, std::move(text));
}

} // namespace

void checkSaving(const ModelDocument& document, const ReadPlaces& places, FindingList& findings) {
    std::size_t number = 0;
    for (FrameWalk walk(document.Root); !walk.done(); walk.next(), ++number) {
        const FrameRecord& frame = walk.frame();
        const FramePlaces place =
            number < places.frames.size() ? places.frames[number] : FramePlaces();
        if (place.frame != nowhere) { // without any frame in the file the root has no name
            checkName(frame, walk.depth() == 0, place.frame, findings);
        }
        if (!frame.HasMesh && frame.HasAnimation) {
            findings.add(FindingId::KeysNotSaved, place.keys,
                         "Frame " + quoted(frame.Name) + " has no mesh: a saved file lacks its " +
                             counted(frame.AnimationKeys.size(), "key", "keys"));
        }
        if (!frame.HasMesh &&
            (frame.Emissive || frame.RenderBackwards || frame.KV2Animated || frame.GFlag)) {
            findings.add(FindingId::FlagsNotSaved, place.frame,
                         "Frame " + quoted(frame.Name) +
                             " has no mesh: a saved file lacks its flags");
        }
    }
}

} // namespace korvane
