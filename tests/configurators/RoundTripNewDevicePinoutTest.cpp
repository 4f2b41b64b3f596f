#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/HeadlessPlatform.hpp"
#include "platform/PictureBox.hpp"
#include "platform/TextMetrics.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

// The device window of File, New draws the pinout of the chosen device; every pin name must lie
// inside its picture, at the scale the device is drawn with.

namespace pendulon {
namespace {

// Widths of a proportional sans-serif screen font, in thousandths of an em: capitals as wide as
// they are in the common sans faces, lower case and everything else on the wide side.
class ProportionalMetrics : public TextMetrics {
  public:
    double TextWidth(const FontSpec& font, std::string_view text) const override {
        static constexpr int kCapitals[26] = {667, 667, 722, 722, 667, 611, 778, 722, 278,
                                              500, 667, 556, 833, 722, 778, 667, 778, 722,
                                              667, 611, 722, 667, 944, 667, 667, 611};
        double thousandths = 0;
        for (char c : text) {
            if (c >= 'A' && c <= 'Z')
                thousandths += kCapitals[c - 'A'];
            else if (c == ' ' || c == '/' || c == '.')
                thousandths += 278;
            else
                thousandths += 584;
        }
        return thousandths / 1000.0 * font.Size * 20.0;
    }
    double TextHeight(const FontSpec& font, std::string_view) const override {
        return font.Size * 20.0 * 1.15;
    }
};

// Leftmost and rightmost x of everything drawn on the picture, text by its measured width.
std::pair<double, double> Extent(PictureBox& picture) {
    double low = 1e9;
    double high = -1e9;
    for (const DrawOp& op : picture.DisplayList()) {
        if (op.type == DrawOp::Type::Text) {
            low = std::min(low, op.x1);
            high = std::max(high, op.x1 + picture.TextWidth(op.text));
        } else if (op.type != DrawOp::Type::Arc) {
            low = std::min({low, op.x1, op.x2});
            high = std::max({high, op.x1, op.x2});
        }
    }
    return {low, high};
}

void ExpectEveryPinNameFits(frmDevice& select, double fill) {
    select.chkShowPinout.SetValue(1);
    for (const char* device : TableDevices()) {
        OptionButton* option = select.OptionFor(device);
        ASSERT_NE(option, nullptr) << device;
        option->SetValue(true);
        ASSERT_EQ(select.mstrCurrentDevice, device);
        ASSERT_FALSE(select.picPinout[0].DisplayList().empty()) << device;
        for (int i = 0; i < 2; ++i) {
            PictureBox& picture = select.picPinout[i];
            if (!picture.Visible() || picture.DisplayList().empty())
                continue;
            const auto [low, high] = Extent(picture);
            EXPECT_GE(low, 0) << device << " picture " << i;
            EXPECT_LE(high, picture.Width()) << device << " picture " << i;
            // Scaled to its frame: the chip fills at least this share of the picture's width.
            EXPECT_GE(high - low, fill * picture.Width()) << device << " picture " << i;
        }
    }
}

TEST(NewDocumentDevicePinout, EveryPinNameFitsItsPicture) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    // The even-width measure of the headless platform.
    ExpectEveryPinNameFits(app.DeviceForm(), 0.6);
}

TEST(NewDocumentDevicePinout, EveryPinNameFitsWithAProportionalScreenFont) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    ProportionalMetrics metrics;
    frmDevice& select = app.DeviceForm();
    select.picPinout[0].SetTextMetrics(&metrics);
    select.picPinout[1].SetTextMetrics(&metrics);
    // The chip on show was drawn in the other measure: the new one draws it anew.
    select.DrawPinout();
    ExpectEveryPinNameFits(select, 0.6);
}

TEST(NewDocumentDevicePinout, TheTwoPackagesStandSideBySide) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    frmDevice& select = app.DeviceForm();
    select.chkShowPinout.SetValue(1);
    select.OptionFor("QX4860")->SetValue(true);
    ASSERT_TRUE(select.picPinout[1].Visible());
    EXPECT_GE(select.picPinout[0].Width(), 2600);
    EXPECT_DOUBLE_EQ(select.picPinout[1].Width(), select.picPinout[0].Width());
    EXPECT_GE(select.picPinout[1].Left(), select.picPinout[0].Left() + select.picPinout[0].Width());
}

TEST(NewDocumentDevicePinout, ShowPinoutKeepsTheWideAndNarrowSizes) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    frmDevice& select = app.DeviceForm();
    select.chkShowPinout.SetValue(1);
    EXPECT_DOUBLE_EQ(select.Width(), 5368);
    select.chkShowPinout.SetValue(0);
    EXPECT_DOUBLE_EQ(select.Width(), 3580);
}

}  // namespace
}  // namespace pendulon
