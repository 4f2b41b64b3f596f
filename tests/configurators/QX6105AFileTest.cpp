#include <gtest/gtest.h>

#include <filesystem>

#include "QX6105ATestSupport.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using testing::QX6105ADocument;

// A document saved and read back: its fields are inputs and the solver runs again.
TEST(QX6105AFile, FilesOpenCalculatedWithNothingPending) {
    const auto dir = pendulon::test::MakeTempDir();
    const std::string path = (std::filesystem::path(dir) / "clock.ent").string();
    {
        QX6105ADocument doc;
        doc.TypeReference("10");
        doc.Type(doc.Form().txtPLL[0], "100");
        QX6105ADocument::Pick(doc.Form().cboClkDiv[0], "PLL/2");
        doc.Form().cmdCalculate_Click();
        doc.Form().MakeEntryFile(path);
    }
    ASSERT_TRUE(std::filesystem::exists(path));

    QX6105ADocument doc;
    clsEntryFile entry(doc.app->Errors());
    ASSERT_TRUE(mFileAccessor::ReadFile(path, entry));
    doc.platform.ClearMessages();
    doc.Type(doc.Form().txtPLL[0], "50");  // an edit that the file replaces
    ASSERT_TRUE(doc.app->gblnNeedsCalculate);
    EXPECT_TRUE(doc.Form().FillForm(entry, path));

    frmQX6105A& form = doc.Form();
    EXPECT_FALSE(doc.app->gblnNeedsCalculate);
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_EQ(form.txtFilePath.Text(), path);
    EXPECT_EQ(form.Caption(), "clock.ent");
    EXPECT_EQ(form.cboFRef.Text(), "10.00000 MHz");
    EXPECT_EQ(form.cboClkDiv[0].Text(), "PLL/2");
    EXPECT_EQ(form.cboPLLData[0].List(0), "100.000000 P:15 Q:3");
    EXPECT_EQ(form.cboActual[0].Text(), "50.00000    PPM:0");
    ASSERT_FALSE(doc.platform.Messages().empty());
    const auto& note = doc.platform.Messages().back();
    EXPECT_EQ(note.Text,
              "NOTE: PPM values are optimized upon loading.  If different PPM values are "
              "desired, please re-select from the drop downs.");
    EXPECT_EQ(note.Style, msgbox::Information);
}

TEST(QX6105AFile, SaveWritesToTheDocumentsPath) {
    const auto dir = pendulon::test::MakeTempDir();
    const std::string path = (std::filesystem::path(dir) / "saved.ent").string();
    QX6105ADocument doc;
    doc.Form().txtFilePath.SetText(path);
    doc.Form().cmdCalculate_Click();
    doc.Form().Save();
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST(QX6105APinout, PinEightFollowsThePinEightOption) {
    QX6105ADocument doc;
    frmQX6105A& form = doc.Form();
    EXPECT_EQ(form.PinName(0), "8");
    EXPECT_EQ(form.PinName(1), "OE");
    EXPECT_EQ(form.PinName(2), "CLKA");
    EXPECT_EQ(form.PinName(8), "VDD");
    form.optFS.SetValue(true);
    EXPECT_EQ(form.PinName(1), "FS");
}

TEST(QX6105AErrors, UnknownDeviceRaisesInvalidDevice) {
    HeadlessPlatform platform;
    Application app(platform);
    app.DeviceForm().mstrCurrentDevice = "QX9999";
    frmQX6105A form(app);
    form.Form_Load();
    bool found = false;
    for (const auto& message : platform.Messages()) {
        if (message.Text.find("10301") != std::string::npos &&
            message.Text.find("Invalid device: QX9999") != std::string::npos)
            found = true;
    }
    EXPECT_TRUE(found);
    EXPECT_EQ(app.Errors().LastNumber(), 10301);
}

}  // namespace
}  // namespace pendulon
