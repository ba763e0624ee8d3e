#include "preview/texture_loader.h"

#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"
#include "texture_samples.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillset {
namespace {

struct Uploaded {
    TextureTable table;
    int index;
    Picture picture;
};

class RecordingSink : public TextureSink {
public:
    void upload(TextureTable table, int index, const Picture& picture) override {
        textures.push_back({table, index, picture});
    }
    std::vector<Uploaded> textures;
};

class TextureLoader : public testing::Test {
protected:
    // One pixel, whose colour says which texture it is.
    static std::string onePixel(TextureTable table, std::size_t index) {
        return encodeBitmap({1, 1, {static_cast<std::uint8_t>(index), static_cast<std::uint8_t>(table), 77}});
    }
    void writeAll(const std::string& texturesBelow) const {
        for (const TextureTable table : textureTables)
            for (std::size_t i = 0; i < textureFiles(table).size(); ++i)
                simulator_.write(texturesBelow + std::string(textureFiles(table)[i]), onePixel(table, i));
    }
    void load() { loadTextures({simulator_.path(), work_.path()}, dialogs_, sink_); }

    test::TemporaryFolder simulator_;
    test::TemporaryFolder work_;
    test::ScriptedDialogs dialogs_;
    RecordingSink sink_;
};

TEST_F(TextureLoader, uploadsAllInTheOrderOfTheTables) {
    writeAll("Texture/");
    work_.write("temp.bmp", std::string(5000, 'x')); // longer than what will be written over it
    load();
    ASSERT_EQ(sink_.textures.size(), 154U);
    std::size_t next = 0;
    for (const TextureTable table : textureTables) {
        for (std::size_t i = 0; i < textureFiles(table).size(); ++i, ++next) {
            EXPECT_EQ(sink_.textures[next].table, table);
            EXPECT_EQ(sink_.textures[next].index, static_cast<int>(i));
            EXPECT_EQ(encodeBitmap(sink_.textures[next].picture), onePixel(table, i));
        }
    }
    EXPECT_TRUE(dialogs_.messages.empty());
    EXPECT_EQ(work_.read("temp.bmp"), onePixel(TextureTable::roof, 33)) << "left from the last texture";
}

TEST_F(TextureLoader, missingAndDamagedTexturesNameTheTemporaryFile) {
    writeAll("texture/");
    simulator_.write("texture/br_apt1_2.bmp", "not a texture");
    std::filesystem::remove(toPath(simulator_.file("texture/sky_w_white4.bmp")));
    std::filesystem::remove(toPath(simulator_.file("texture/roof3.bmp")));
    simulator_.write("texture/ROOF3.BMP", onePixel(TextureTable::roof, 200));
    load();
    const Message expected{"Loading Texture File: '" + work_.file("temp.bmp") + "' Failed!", "Quillset XML",
                           MessageButtons::ok, MessageIcon::critical};
    EXPECT_EQ(dialogs_.messages, (std::vector<Message>{expected, expected}));
    ASSERT_EQ(sink_.textures.size(), 152U) << "a failed texture gets no other one's picture";
    EXPECT_EQ(sink_.textures.front().index, 1);
    const Uploaded& third = sink_.textures[sink_.textures.size() - 32];
    EXPECT_EQ(third.picture.pixels.front(), 200) << "letter case of a name is free";
}

TEST_F(TextureLoader, theUserCanAskForQuiet) {
    dialogs_.quietAfter = 3;
    load();
    EXPECT_EQ(dialogs_.messages.size(), 3U);
    EXPECT_EQ(dialogs_.checkBoxes.size(), 3U);
    dialogs_ = {};
    load();
    EXPECT_EQ(dialogs_.messages.size(), 154U) << "one for each when nobody asks for quiet";
    EXPECT_TRUE(sink_.textures.empty());
}

} // namespace
} // namespace quillset
