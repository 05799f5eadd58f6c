#include "formats/check/TextureCheck.h"

#include "model/records/ModelText.h"

#include <QDir>

#include <string>
#include <unordered_set>

namespace korvane {

namespace {

const char* spelled(TextureSpelling spelling) {
    switch (spelling) {
    case TextureSpelling::AsNamed:
        break;
    case TextureSpelling::Backslashes:
        return " is found only if backslashes count as separators: ";
    case TextureSpelling::OtherCase:
        return " is found only in different letter case: ";
    case TextureSpelling::PlainName:
        return " is found only without its folder: ";
    }
    return "";
}

/// Returns the name of a file relative to the model's folder, if it is in that folder.
std::string nameFrom(const QString& folder, const QString& file) {
    const QString relative = QDir(folder).relativeFilePath(file);
    return modelText(relative.startsWith(QLatin1String("../")) ? file : relative);
}

void checkTexture(const std::string& name, TextPlace place, TextureLoader& loader,
                  FindingList& findings) {
    const std::string texture = "Texture " + korvane::quoted(name);
    const auto found = loader.locate(shownText(name));
    if (!found) {
        findings.add(FindingId::TextureMissing, place, texture + " was not found");
        return;
    }
    if (found->spelling != TextureSpelling::AsNamed) {
        findings.add(FindingId::TextureSpelling, place,
                     texture + spelled(found->spelling) +
                         korvane::quoted(nameFrom(loader.folder(), found->file)));
    }
    const TextureOutcome outcome = loader.outcome(*found);
    if (!outcome.refusal.empty()) {
        findings.add(outcome.tooLarge ? FindingId::TextureTooLarge : FindingId::TextureNotDecoded,
                     place, texture + " cannot be shown: " + outcome.refusal);
    }
}

} // namespace

void checkTextures(const ModelDocument& document, const ReadPlaces& places, TextureLoader& loader,
                   FindingList& findings) {
    std::unordered_set<std::string_view> checked;
    for (const MaterialRecord& material : document.Materials) {
        if (material.HasTexture && checked.insert(material.TextureFile).second) {
            const auto place = places.textures.find(material.TextureFile);
            checkTexture(material.TextureFile,
                         place == places.textures.end() ? nowhere : place->second, loader,
                         findings);
        }
    }
}

} // namespace korvane
