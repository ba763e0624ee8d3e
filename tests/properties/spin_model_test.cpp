#include "base/runtime_error.h"
#include "properties/map_bag.h"
#include "properties/spin_model.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

SpinModel model(int min, int max, int value) {
    SpinModel spin;
    spin.setMax(max);
    spin.setMin(min);
    spin.setValue(value);
    return spin;
}

TEST(SpinModel, typingAndLeaving) {
    struct Case {
        const char* name;
        int min, max, value;
        const char* typed;
        std::string text; ///< at once
        int number;
        std::string settledText;
        int settledNumber;
    };
    const std::vector<Case> cases{
        {"above the maximum", 0, 85, 7, "999", "85", 85, "85", 85},
        {"far above", 0, 85, 7, "1e300", "85", 85, "85", 85},
        {"a little above", 0, 85, 7, "85.4", "85", 85, "85", 85},
        {"below the minimum", 0, 85, 3, "-5", "-5", 3, "0", 0},
        {"not a number", 3, 999, 7, "abc", "abc", 7, "3", 3},
        {"not a number, within the limits as 0", 0, 85, 7, "abc", "0", 0, "0", 0},
        {"on the way to a number", 3, 999, 7, "1", "1", 7, "3", 3},
        {"within", 3, 999, 7, "12", "12", 12, "12", 12},
        {"leading number", 0, 85, 7, " 12 apples", "12", 12, "12", 12},
        {"rounds half to even", 0, 85, 7, "12.5", "12", 12, "12", 12},
        {"same number in other words stays as typed", 0, 85, 7, "007", "007", 7, "007", 7},
        {"below, but settling on the value held: stays as typed", 3, 999, 3, "1", "1", 3, "1", 3},
        {"empty is checked only when leaving", 0, 85, 7, "", "", 7, "0", 0},
        {"empty with a higher minimum", 3, 999, 7, "", "", 7, "3", 3},
    };
    for (const Case& c : cases) {
        SpinModel spin = model(c.min, c.max, c.value);
        spin.setText(c.typed);
        EXPECT_EQ(spin.text(), c.text) << c.name;
        EXPECT_EQ(spin.value(), c.number) << c.name;
        spin.settle();
        EXPECT_EQ(spin.text(), c.settledText) << c.name << ", left";
        EXPECT_EQ(spin.value(), c.settledNumber) << c.name << ", left";
    }
}

TEST(SpinModel, positionsAreNegatedNumbers) {
    SpinModel spin = model(-10, 85, 4);
    EXPECT_EQ(spin.position(), -4);
    spin.setPosition(-5);
    EXPECT_EQ(spin.text(), "5");
    spin.setPosition(-86);
    EXPECT_EQ(spin.value(), 85) << "stops at the maximum";
    spin.setPosition(11);
    EXPECT_EQ(spin.text(), "-10") << "stops at the minimum";
    spin.setMin(2);
    EXPECT_EQ(spin.text(), "2") << "a new limit moves the value";
}

TEST(SpinModel, tellsOnlyOfChangesOfTheText) {
    SpinModel spin = model(0, 85, 7);
    std::vector<std::string> heard;
    const Connection connection = spin.changed.connect([&] { heard.push_back(spin.text()); });
    spin.setValue(7);
    spin.setText("7");
    EXPECT_TRUE(heard.empty());
    spin.setPosition(-8);
    EXPECT_EQ(heard, std::vector<std::string>{"8"});
    spin.setText("99");
    EXPECT_EQ(spin.text(), "85");
    EXPECT_EQ(heard.back(), "85") << "nobody may see a number beyond the limits";
}

TEST(SpinModel, numbersAreSixteenBit) {
    SpinModel spin;
    EXPECT_EQ(spin.max(), 32766);
    EXPECT_THROW(spin.setMax(32768), RuntimeError);
    EXPECT_THROW(spin.setMin(-32768), RuntimeError);
    EXPECT_EQ(spin.max(), 32766);
}

const std::vector<std::string> storedOrder{"BackColor",   "ForeColor",   "Enabled", "Font",
                                           "BorderStyle", "LargeChange", "Max",     "Min",
                                           "SmallChange", "Text",        "Value"};

TEST(SpinSettings, keepTheirOrderAndTheRawPosition) {
    SpinSettings settings{0x00FF8000U, 0x80000012U, false, "Sans,10", 0, 5, 999, 3, 2, "12", -12};
    test::MapBag bag;
    writeSpinSettings(bag, settings);
    EXPECT_EQ(bag.order, storedOrder);
    EXPECT_EQ(bag.texts["Value"], "-12");
    bag.order.clear();
    EXPECT_EQ(readSpinSettings(bag), settings);
    EXPECT_EQ(bag.order, storedOrder);
}

TEST(SpinSettings, unusableTextsReadAsTheDefaults) {
    test::MapBag bag;
    EXPECT_EQ(readSpinSettings(bag), SpinSettings());
    for (const std::string& name : storedOrder) {
        if (name != "Font" && name != "Text")
            bag.texts[name] = "99999999999x";
    }
    EXPECT_EQ(readSpinSettings(bag), SpinSettings());
    bag.texts["Max"] = "40000"; // a number, but not of 16 bits
    EXPECT_EQ(readSpinSettings(bag).max, 32766);
}

} // namespace
} // namespace quillset
