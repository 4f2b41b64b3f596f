#include <gtest/gtest.h>

#include <vector>

#include "app/Configurator.hpp"
#include "core/Text.hpp"
#include "platform/CheckBox.hpp"
#include "platform/ControlArray.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "reports/FakeForms.hpp"
#include "reports/frmPrintPreview.hpp"
#include "reports/mAsciiPrintout.hpp"
#include "reports/mAsciiPrintoutDocument.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Select;

// A QX6105A document window with the fields the configuration document reads.
class Document6105A : public Configurator {
  public:
    explicit Document6105A(Application& app)
        : Configurator(app, "frmQX6105A"), txtPLL(2), cboClkDiv(3), cboActual(6) {
        optFS.SetGroup("Pin8");
        optOE.SetGroup("Pin8");
        opt5V.SetGroup("Voltage");
        opt3V.SetGroup("Voltage");
        Register("txtFilePath", txtFilePath);
        Register("lblDevice", lblDevice);
        Register("optFS", optFS);
        Register("optOE", optOE);
        Register("opt5V", opt5V);
        Register("opt3V", opt3V);
        Register("cboFRef", cboFRef);
        RegisterArray("txtPLL", txtPLL);
        RegisterArray("cboClkDiv", cboClkDiv);
        RegisterArray("cboActual", cboActual);
        Register("chkSmoothSlew", chkSmoothSlew);
    }

    std::string Device() const override { return device; }
    void SetDevice(const std::string& value) override { device = value; }
    std::string Checksum() override { return "1A2B"; }
    bool FillForm(clsEntryFile&, const std::string&) override { return true; }
    bool Save() override { return false; }
    bool MakeEntryFile(const std::string&) override { return false; }
    bool MakeEPROMVector(const std::string&, bool) override { return false; }
    std::string PinName(int index) const override {
        std::vector<std::string> pins;
        mAsciiPrintout::GetPinout6105A(pins, optFS.Value() ? "Select" : "OE");
        return index >= 0 && index < static_cast<int>(pins.size()) ? pins[index] : "";
    }
    void CalculatePower() override {}
    void DisplayAllActuals() override {}
    void cmdApplyLimits_Click() override {}
    void cmdCalculate_Click() override {}
    void Form_Load() override {}

    std::string device = "QX6105A";
    OptionButton optFS, optOE, opt5V, opt3V;
    ControlArray<TextField> txtPLL;
    ControlArray<ListField> cboClkDiv;
    ControlArray<ListField> cboActual;
    CheckBox chkSmoothSlew;
};

class AppDocument : public ::testing::Test {
  protected:
    AppDocument() {
        platform.SetNow(DateTime{2002, 1, 2, 3, 4, 5});
        app.gstrTitle = "Pendulon(tm) 3.71";
        app.gstrBuild = "Build #: 3.71.10";
    }

    Document6105A& NewDocument() {
        auto document = std::make_unique<Document6105A>(app);
        Document6105A& form = *document;
        app.SetDocument(std::move(document));
        return form;
    }

    HeadlessPlatform platform;
    Application app{platform};
};

TEST_F(AppDocument, DocumentOfAConfiguratorTakesSummaryChecksumAndPinsFromTheProgram) {
    Document6105A& form = NewDocument();
    form.optFS.SetValue(true);
    form.opt5V.SetValue(true);
    form.txtFilePath.SetText("C:\\designs\\demo6105.ent");
    form.cboFRef.AddItem("14.31818 MHz");
    form.cboFRef.AddItem("25.00000 MHz");
    form.cboFRef.SetListIndex(1);
    test::SetFrequencySelectExample(form);
    form.chkSmoothSlew.SetValue(1);
    app.Summary().txtComments.SetText("Golden document");
    app.Summary().txtCustomer.SetText("Test customer");
    app.Summary().txtFAE.SetText("Test engineer");
    app.Summary().txtRevision.SetText("01");
    app.Summary().lblChecksum.SetCaption("1A2B");

    EXPECT_EQ(mAsciiPrintout::GetASCIIDocument(form),
              test::ReadFile(test::DataPath("ascii-6105a-fs.txt")));
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(AppDocument, OutputTableOfAnUnbuiltFamilyGoesToTheProgramsErrorReport) {
    Document6105A& form = NewDocument();
    form.device = "QX9999";
    EXPECT_EQ(mAsciiPrintout::MakeOutputTable(form), "");
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Title, "Pendulon(tm) 3.71");
    EXPECT_NE(platform.Messages()[0].Text.find("Invalid device: QX9999"), std::string::npos);
}

TEST_F(AppDocument, OptionsOfAConfiguratorFollowItsDevice) {
    Document6105A& form = NewDocument();
    form.optOE.SetValue(true);
    form.txtPLL[0].SetText("80");
    EXPECT_EQ(mAsciiPrintout::GetOptions(form), "PLL: Desired = 80\r\nSmooth Slew: Off\r\n");
}

TEST_F(AppDocument, PreviewStandsInFrontOfTheDocumentWithTheText) {
    NewDocument();
    frmPrintPreview& preview = frmPrintPreview::ShowText(app, "text\r\n");
    EXPECT_EQ(app.Preview(), &preview);
    EXPECT_EQ(app.ActiveChild(), &preview);
    EXPECT_EQ(preview.txtPrintout.Text(), "text\r\n");
    EXPECT_EQ(preview.cboPrintFont.Text(), "Courier New");
}

TEST_F(AppDocument, PreviewAsksWhileTheSummaryChecksumIsNotAvailable) {
    frmPrintPreview& preview = frmPrintPreview::ShowText(app, "text");
    EXPECT_EQ(app.Summary().lblChecksum.Caption(), "n/a");
    platform.QueueAnswer(msgbox::No);
    preview.cmdPrint_Click();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Title, "Pendulon(tm) 3.71");
    EXPECT_TRUE(platform.Printed().empty());

    app.Summary().lblChecksum.SetCaption("12AB");  // leading number 12
    preview.cmdPrint_Click();
    EXPECT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Printed().size(), 1u);
    EXPECT_EQ(app.Main().lblStatus.Caption(), "");
    EXPECT_EQ(Trim(app.Main().lblHelpInfo.Caption()), "Document sent to printer.");
}

TEST_F(AppDocument, PreviewPrintSetupIsTheMainWindowsCommand) {
    frmPrintPreview& preview = frmPrintPreview::ShowText(app, "text");
    preview.mnuFilePrintSetup.RaiseClick();
    ASSERT_EQ(platform.DialogsShown().size(), 1u);
    EXPECT_EQ(platform.DialogsShown()[0].Flags, 64);
}

TEST_F(AppDocument, ClosingThePreviewStoresTheChoiceAndLeavesTheDocument) {
    Document6105A& form = NewDocument();
    frmPrintPreview& preview = frmPrintPreview::ShowText(app, "text");
    preview.cboPrintSize.SetListIndex(5);
    preview.cmdClose_Click();
    EXPECT_EQ(app.Preview(), nullptr);
    EXPECT_EQ(app.ActiveChild(), &form);
    EXPECT_EQ(platform.GetSetting("Pendulon", "Print", "FontSize", ""), "10");
    EXPECT_EQ(platform.GetSetting("Pendulon", "Print", "FontName", ""), "Courier New");
}

TEST_F(AppDocument, ThePreviewUnloadedByTheProgramStoresTheChoiceToo) {
    frmPrintPreview& preview = frmPrintPreview::ShowText(app, "text");
    preview.cboPrintSize.SetListIndex(7);
    app.UnloadPreview();
    EXPECT_EQ(app.Preview(), nullptr);
    EXPECT_EQ(platform.GetSetting("Pendulon", "Print", "FontSize", ""), "12");
}

TEST_F(AppDocument, TheProgramsSaveOfThePreviewSavesItsText) {
    frmPrintPreview::ShowText(app, "saved text");
    const std::string path = test::MakeTempDir() + "/out.txt";
    platform.QueueFileAnswer(path);
    app.SavePreview();
    EXPECT_EQ(test::ReadFile(path), "saved text\r\n");
    EXPECT_EQ(Trim(app.Main().lblHelpInfo.Caption()), "Document saved to \"" + path + "\"");
}

}  // namespace
}  // namespace pendulon
