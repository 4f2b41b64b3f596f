#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/HeadlessPlatform.hpp"
#include "platform/PictureBox.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

// The device window of File, New draws the pinout of the chosen device; every pin name must lie
// inside its picture, at the scale the device is drawn with.

namespace pendulon {
namespace {

const char* const kDevices[] = {"QX6105A", "QX6105AF", "QX6105AI", "QX7311",  "QX7311F",
                                "QX7311I", "QX7312",   "QX7312F",  "QX7312I", "QX4860",
                                "QX4860F", "QX4860I",  "QX5140",   "QX3350",  "QX3350I"};

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

TEST(NewDocumentDevicePinout, EveryPinNameFitsItsPicture) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    frmDevice& select = app.DeviceForm();
    select.chkShowPinout.SetValue(1);
    for (const char* device : kDevices) {
        OptionButton* option = select.OptionFor(device);
        ASSERT_NE(option, nullptr) << device;
        option->SetValue(true);
        ASSERT_EQ(select.mstrCurrentDevice, device);
        for (int i = 0; i < 2; ++i) {
            PictureBox& picture = select.picPinout[i];
            if (!picture.Visible() || picture.DisplayList().empty())
                continue;
            const auto [low, high] = Extent(picture);
            EXPECT_GE(low, 0) << device << " picture " << i;
            EXPECT_LE(high, picture.Width()) << device << " picture " << i;
            // Room for names a tenth wider than the measured ones, as the screen's fonts give.
            EXPECT_GE(picture.Width() - (high - low), 0.1 * (high - low))
                << device << " picture " << i;
        }
    }
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
