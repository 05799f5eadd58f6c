#include "edit/recovery/RecoveryCopy.h"

#include "formats/files/ByteReader.h"
#include "formats/files/Checksum.h"
#include "support/AllocationWatch.h"
#include "support/ClipboardBytes.h"
#include "support/FrameMaking.h"
#include "support/RandomModel.h"
#include "support/WriteText.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace korvane {
namespace {

using test::Bytes;

QByteArray copyOf(const ModelDocument& document, std::int64_t time = 7) {
    QByteArray copy;
    EXPECT_TRUE(writeCopy(document, time, [&copy](std::string_view piece) {
        copy.append(piece.data(), static_cast<qsizetype>(piece.size()));
        return true;
    }));
    return copy;
}

std::optional<ModelDocument> read(const QByteArray& copy) {
    return readCopy(bytesOf(copy), {});
}

/// A model whose fields all differ from the defaults.
ModelDocument oddModel(std::uint32_t seed, int deepest = 3) {
    test::RandomModel random(test::seededNumbers(seed), test::RandomContent::Any, deepest);
    ModelDocument document = random.make();
    document.FileName = QStringLiteral("/models/ship %1 \u00e9.xsi").arg(seed);
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        FrameRecord& frame = walk.frame();
        frame.HasBasePose = random.chance(50);
        frame.BasePose[7] = random.real();
        frame.Mesh.FaceBits.assign(seed % 5, seed % 2 == 0);
        frame.Mesh.CurrentSlot = static_cast<std::int32_t>(seed % 7) - 2;
        frame.Mesh.MaterialSlotList.push_back(static_cast<std::int32_t>(seed) - 9);
        frame.Mesh.FaceSlotIndex.push_back(std::numeric_limits<std::int32_t>::min());
        frame.Name += random.chance(20) ? "\n \"\xff" : "";
    }
    for (MaterialRecord& material : document.Materials) {
        material.MappingType = static_cast<std::int32_t>(seed);
        material.UVSwap = -1;
        material.HasTexture = random.chance(50);
        material.TextureFile += random.chance(20) ? "\"\n\\" : "";
        material.Projection[3] = random.real();
        material.Roughness = random.real();
    }
    return document;
}

TEST(RecoveryCopy, HoldsEveryFieldBitByBit) {
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        const ModelDocument document = oddModel(seed);
        const std::int64_t time = 1'700'000'000'000 + seed;
        const QByteArray copy = copyOf(document, time);
        const CopyHead head = readCopyHead(bytesOf(copy.first(200)), bytesOf(copy).size());
        EXPECT_EQ(head.fault, CopyFault::None);
        EXPECT_EQ(head.model, document.FileName);
        EXPECT_EQ(head.time, time);
        std::optional<ModelDocument> again = read(copy);
        ASSERT_TRUE(again.has_value()) << seed;
        EXPECT_TRUE(again->NeverSaved && again->Modified);
        EXPECT_EQ(again->FileName, document.FileName);
        // the bytes are the same in every bit, even those of NaN
        EXPECT_EQ(copyOf(*again, time), copy) << seed;
        EXPECT_EQ(test::writeText(*again), test::writeText(document)) << seed;
    }
}

TEST(RecoveryCopy, LeavesOutNothingButPictures) {
    for (std::uint32_t seed = 1; seed <= 100; ++seed) {
        test::RandomModel random(seed);
        ModelDocument document = random.make();
        for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
            FrameRecord& frame = walk.frame();
            frame.HasBasePose = random.chance(50);
            frame.BasePose[7] = random.real();
            frame.ViewFlags[seed % 3] = false;
            frame.Mesh.FaceBits.assign(seed % 5, seed % 2 == 0);
            frame.Mesh.CurrentSlot = static_cast<std::int32_t>(seed % 7) - 2;
        }
        document.Materials[0].TextureFile = "off.tga";
        document.Materials[0].HasTexture = false;
        document.computeDerivedData();
        document.markSelection(FramePath());
        const auto picture = std::make_shared<const TextureImage>();
        std::optional<ModelDocument> again =
            readCopy(bytesOf(copyOf(document)), [&](const std::string&) { return picture; });
        ASSERT_TRUE(again.has_value()) << seed;
        test::dropOddNormals(document.Root);
        test::dropOddNormals(again->Root);
        EXPECT_EQ(again->Root, document.Root) << seed;
        for (MaterialRecord& material : document.Materials) {
            // loaded again, even if switched off
            material.TextureImage = material.TextureFile.empty() ? blankTextureImage() : picture;
        }
        EXPECT_EQ(again->Materials, document.Materials) << seed;
    }
}

TEST(RecoveryCopy, EveryMissingOrChangedByteIsFound) {
    const QByteArray copy = copyOf(oddModel(5, 0));
    ASSERT_TRUE(read(copy).has_value());
    for (qsizetype size = 0; size < copy.size(); ++size) {
        ASSERT_FALSE(read(copy.first(size)).has_value()) << size;
        ASSERT_EQ(readCopyHead(bytesOf(copy.first(size)), static_cast<std::uint64_t>(size)).fault,
                  CopyFault::Damaged);
    }
    EXPECT_FALSE(read(copy + '\0').has_value());
    for (qsizetype at = 0; at < copy.size(); ++at) {
        for (const int bit : {1, 128}) {
            QByteArray flipped = copy;
            flipped[at] = static_cast<char>(flipped[at] ^ bit);
            ASSERT_FALSE(read(flipped).has_value()) << at;
        }
    }
    QByteArray other = copy;
    other[16] = 2; // the version
    EXPECT_EQ(readCopyHead(bytesOf(other), static_cast<std::uint64_t>(other.size())).fault,
              CopyFault::OtherVersion);
}

/// Records that were changed but have the right checksum.
TEST(RecoveryCopy, DamagedRecordsAreReadInFullOrRefusedInLittleMemory) {
    const QByteArray records = encodeRecords(oddModel(8, 1));
    std::size_t refused = 0;
    for (qsizetype at = 0; at < records.size(); ++at) {
        for (const int value : {1, 0xff}) {
            QByteArray damaged = records;
            damaged[at] = static_cast<char>(value);
            const test::AllocationWatch watch;
            const std::optional<ModelDocument> got = decodeRecords(bytesOf(damaged));
            EXPECT_LT(watch.largest(), 64 * bytesOf(records).size());
            refused += got ? 0U : 1U;
            ASSERT_TRUE(!got || encodeRecords(*got) == damaged) << at << ' ' << value;
        }
        ASSERT_FALSE(decodeRecords(bytesOf(records.first(at))).has_value()) << at;
    }
    EXPECT_GT(refused, 100U);
    const auto nested = [](std::size_t depth) {
        ModelDocument document;
        test::chainBelow(document.Root, depth);
        return decodeRecords(bytesOf(encodeRecords(document))).has_value();
    };
    EXPECT_TRUE(nested(maxFrameDepth));
    EXPECT_FALSE(nested(maxFrameDepth + 1));
}

} // namespace
} // namespace korvane
