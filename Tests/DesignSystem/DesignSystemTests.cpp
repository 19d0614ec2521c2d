#include "DesignSystem/ABAppearance.h"
#include "DesignSystem/ABColor.h"
#include "DesignSystem/Stage.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include <QAnimationDriver>
#include <QCoreApplication>
#include <gtest/gtest.h>

namespace ambrel {

namespace {

/// Animations go on when a test says so.
class Frames : public QAnimationDriver {
public:
    Frames() { install(); }
    [[nodiscard]] qint64 elapsed() const override { return now_; }
    void pass(int milliseconds) {
        for (int end = static_cast<int>(now_) + milliseconds; now_ < end;) {
            now_ += 10;
            advanceAnimation();
            QCoreApplication::processEvents();
        }
    }

private:
    qint64 now_ = 0;
};

class DesignSystemTests : public testing::Test {
protected:
    ~DesignSystemTests() override {
        auto& appearance = ABAppearance::shared();
        appearance.setDark(false);
        appearance.setHighContrast(false);
        appearance.setReducedMotion(false);
        appearance.setTextScale(1);
    }
};

double luminance(const QColor& color) {
    const auto linear = [](float part) {
        return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& ink, const QColor& surface) {
    const auto [dark, light] = std::minmax({luminance(ABColor::over(surface, ink)), luminance(surface)});
    return (light + 0.05) / (dark + 0.05);
}

TEST_F(DesignSystemTests, TextCanBeRead) {
    for (const bool dark : {false, true}) {
        for (const bool high : {false, true}) {
            ABAppearance::shared().setDark(dark);
            ABAppearance::shared().setHighContrast(high);
            std::map<std::string, QColor> inks{{"primary", ABColor::textPrimary()},
                                               {"secondary", ABColor::textSecondary()}};
            if (high) {
                inks["tertiary"] = ABColor::textTertiary();
                EXPECT_GE(contrast(ABColor::accentText(), ABColor::accentFill()), 4.5);
            }
            for (const auto& surface : {ABColor::windowBg(), ABColor::contentBg(), ABColor::control()}) {
                for (const auto& [name, ink] : inks) {
                    EXPECT_GE(contrast(ink, surface), 4.5) << name << " on " << surface.name().toStdString();
                }
            }
        }
    }
}

/// How many pixels in a row, downwards in the middle, are not white.
std::vector<int> strokes(const QImage& picture) {
    std::vector<int> found;
    bool inside = false;
    for (int y = 0; y < picture.height(); ++y) {
        const bool inked = picture.pixelColor(picture.width() / 2, y) != QColor(Qt::white);
        if (inked && !inside) {
            found.push_back(0);
        }
        if (inked) {
            ++found.back();
        }
        inside = inked;
    }
    return found;
}

TEST_F(DesignSystemTests, HairlinesAreOfWholePixels) {
    Stage stage(R"(Rectangle {
        ABDivider { width: 60; y: 5 }
        Item { y: 10; Item { y: 0.4; ABDivider { width: 60; y: 0.3 } } }
        Item { objectName: "moved"; y: 20; ABDivider { width: 60; y: 0.5 } }
        ABCardSurface { width: 60; height: 20; y: 30; color: "white" }
    })",
                {60, 60});
    ASSERT_EQ(stage.errors, "");
    EXPECT_EQ(strokes(stage.picture()), (std::vector{1, 1, 1, 1, 1}));
    stage.item("moved")->setY(21.3);
    EXPECT_EQ(strokes(stage.picture()), (std::vector{1, 1, 1, 1, 1}));
    ABAppearance::shared().setHighContrast(true);
    EXPECT_EQ(strokes(stage.picture()), (std::vector{2, 2, 2, 2, 2}));
}

TEST_F(DesignSystemTests, ControlsAskAndShowOnlyWhatTheyAreGiven) {
    for (const bool obeys : {true, false}) {
        Stage stage(QString(R"(Item {
            id: owner
            property bool toggle: false
            property bool box: false
            property int choice: 0
            property int number: 115
            property string asked
            property bool obeys: %1
            Column {
                ABToggle {
                    objectName: "toggle"; label: "t"; isOn: owner.toggle; focus: true
                    onEdited: value => { owner.asked += "t" + Number(value); if (owner.obeys) owner.toggle = value }
                }
                ABCheckBox {
                    objectName: "box"; text: "b"; isOn: owner.box
                    onEdited: value => { owner.asked += "b" + Number(value); if (owner.obeys) owner.box = value }
                }
                ABPicker {
                    objectName: "picker"; options: ["a", "b", "c"]; currentIndex: owner.choice
                    onPicked: index => { owner.asked += "p" + index; if (owner.obeys) owner.choice = index }
                }
                ABStepper {
                    objectName: "stepper"; value: owner.number; from: 5; to: 120; stepSize: 10
                    onEdited: value => { owner.asked += "s" + value; if (owner.obeys) owner.number = value }
                }
            }
        })")
                        .arg(obeys ? "true" : "false"));
        ASSERT_EQ(stage.errors, "");
        const auto asked = [&] {
            auto text = stage.item()->property("asked").toString();
            stage.item()->setProperty("asked", "");
            return text;
        };
        stage.click("toggle");
        stage.press(Qt::Key_Space, " ");
        stage.press(Qt::Key_Return);
        EXPECT_EQ(asked(), obeys ? "t1t0t1" : "t1t1t1");
        EXPECT_EQ(stage.item("toggle")->property("isOn").toBool(), obeys);
        stage.press(Qt::Key_Tab);
        stage.press(Qt::Key_Space, " ");
        stage.click("box");
        EXPECT_EQ(asked(), obeys ? "b1b0" : "b1b1");
        stage.press(Qt::Key_Tab);
        stage.press(Qt::Key_Left);
        stage.press(Qt::Key_Right);
        stage.press(Qt::Key_Right);
        stage.press(Qt::Key_Right);
        EXPECT_EQ(asked(), obeys ? "p1p2" : "p1p1p1");
        stage.press(Qt::Key_Tab);
        stage.press(Qt::Key_Up);
        stage.press(Qt::Key_Up);
        stage.press(Qt::Key_Down);
        EXPECT_EQ(asked(), obeys ? "s120s110" : "s120s120s105");
    }
}

TEST_F(DesignSystemTests, RingIsForTheKeyboardOnly) {
    Stage stage(R"(Rectangle {
        ABGlassButton { objectName: "first"; x: 20; y: 20; text: "First" }
        ABGlassButton { objectName: "second"; x: 20; y: 70; text: "Second" }
    })");
    ASSERT_EQ(stage.errors, "");
    const auto ringAt = [&](int y) {
        return stage.colorAt(40, y) != QColor(Qt::white);
    };
    stage.click("first");
    EXPECT_FALSE(ringAt(17));
    stage.press(Qt::Key_Tab);
    EXPECT_TRUE(ringAt(67));
    EXPECT_FALSE(ringAt(69)) << "there is a gap between the control and its ring";
    stage.click("first");
    EXPECT_FALSE(ringAt(67));
    EXPECT_FALSE(ringAt(17));
}

const auto springs = R"(Item {
    ABSpring { objectName: "place"; motion: ABMotion.standard; target: 10 }
    ABSpring { objectName: "fading"; motion: ABMotion.standard; target: 1; fades: true; epsilon: 0.001 }
})";

TEST_F(DesignSystemTests, AlertHoldsEverythingBackUntilItIsAnswered) {
    ABAppearance::shared().setReducedMotion(true);
    Stage stage(R"(FocusScope {
        id: root
        property string done
        focus: true
        ABGlassButton { objectName: "behind"; focus: true; text: "Behind"; onClicked: root.done += "behind;" }
        ABAlert { visible: true; confirmText: "Do It"; onConfirmed: root.done += "yes;"; onCancelled: root.done += "no;" }
    })");
    ASSERT_EQ(stage.errors, "");
    stage.click("behind");
    stage.press(Qt::Key_Backtab);
    stage.press(Qt::Key_Backtab);
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(stage.item()->property("done").toString(), "no;");
}

TEST_F(DesignSystemTests, SpringMovesOnlyWhileItHasTo) {
    Frames frames;
    Stage stage(springs);
    auto* const spring = stage.item()->findChild<QObject*>("place");
    const auto value = [&] {
        return spring->property("value").toDouble();
    };
    EXPECT_EQ(value(), 10) << "the first target is no movement";
    EXPECT_FALSE(spring->property("moving").toBool());
    spring->setProperty("target", 110);
    frames.pass(100);
    const double halfway = value();
    EXPECT_TRUE(halfway > 40 && halfway < 105) << halfway;
    spring->setProperty("target", 10);
    frames.pass(20);
    EXPECT_GT(value(), halfway) << "what is thrown forward doesn't turn on the spot";
    frames.pass(1000);
    EXPECT_EQ(value(), 10);
    EXPECT_FALSE(spring->property("moving").toBool());
}

TEST_F(DesignSystemTests, ReducedMotionJumpsAndFades) {
    Frames frames;
    Stage stage(springs);
    ABAppearance::shared().setReducedMotion(true);
    auto* const place = stage.item()->findChild<QObject*>("place");
    auto* const fading = stage.item()->findChild<QObject*>("fading");
    place->setProperty("target", 110);
    fading->setProperty("target", 0);
    EXPECT_EQ(place->property("value").toDouble(), 110);
    frames.pass(60);
    const double halfway = fading->property("value").toDouble();
    EXPECT_TRUE(halfway > 0.3 && halfway < 0.7) << halfway;
    frames.pass(80);
    EXPECT_EQ(fading->property("value").toDouble(), 0);
}

TEST_F(DesignSystemTests, TextIsBoundedWhereAViewSaysSo) {
    Stage stage(R"(Item {
        ABText { objectName: "free"; text: "x" }
        Item {
            objectName: "bounded"
            Item { objectName: "inner"; ABText { objectName: "held"; text: "x" } }
            ABDynamicType.maximum: 1.25
        }
    })");
    ASSERT_EQ(stage.errors, "");
    const auto scale = [&](const char* name) {
        return stage.item(name)->property("textScale").toDouble();
    };
    ABAppearance::shared().setTextScale(2);
    EXPECT_EQ(scale("free"), 2);
    EXPECT_EQ(scale("held"), 1.25);
    EXPECT_EQ(stage.item("free")->height(), 36);
    stage.item("inner")->setParentItem(stage.item());
    EXPECT_EQ(scale("held"), 2) << "moved out";
    stage.item("inner")->setParentItem(stage.item("bounded"));
    ABAppearance::shared().setTextScale(1.1);
    EXPECT_EQ(scale("held"), 1.1);
}

TEST_F(DesignSystemTests, SymbolsTakeTheirColour) {
    Stage stage(R"(Rectangle { ABSymbol { name: "xmark.circle.fill"; color: "#00ff00"; size: 40 } })", {40, 40});
    ASSERT_EQ(stage.errors, "");
    EXPECT_EQ(stage.colorAt(8, 20), QColor(0, 255, 0));
    EXPECT_EQ(stage.colorAt(20, 20), QColor(Qt::white)) << "the cross is cut out";
    EXPECT_EQ(stage.colorAt(1, 1), QColor(Qt::white));
}

} // namespace

} // namespace ambrel
