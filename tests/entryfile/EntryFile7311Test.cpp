#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "Cases7311.hpp"
#include "EntryTestSupport.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "app/mSharedApp.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fake7311Form;
using test::SetOnlyEntry;

const std::string kCases[] = {"QX7311_5V", "QX7311F_3V", "QX7312_5V", "QX7312I_Suspend"};

// The family checksum the golden vector carries on its "Pendulon Checksum = " line.
int GoldenChecksum(const std::string& name) {
    const std::string text = test::ReadFile(test::DataPath("entry/" + name + ".jed"));
    const std::string marker = "Pendulon Checksum = ";
    const size_t at = text.find(marker);
    return at == std::string::npos ? -1 : std::stoi(text.substr(at + marker.size()));
}

class EntryFile7311Test : public ::testing::Test, public test::AppFixture {
  protected:
    Fake7311Form* form = nullptr;
    std::unique_ptr<Fake7311Form> owned;
    std::string dir = test::MakeTempDir();

    ~EntryFile7311Test() override { std::filesystem::remove_all(dir); }

    // Makes the window of a case; as the open document when the summary's checksum must follow it.
    void Use(std::unique_ptr<Fake7311Form> made, bool asDocument = false) {
        ASSERT_NE(made, nullptr);
        form = made.get();
        ASSERT_NE(form->mclsEntryFile.Form(), nullptr);
        if (asDocument)
            app.SetDocument(std::move(made));
        else
            owned = std::move(made);
    }
    void Use(const std::string& name, bool asDocument = false) {
        Use(test::MakeCase7311(app, name), asDocument);
    }
    clsEntryFile7311& Cls() { return form->mclsEntryFile; }
    const clsEntryFile& Image() { return form->mclsEntryFile.Entry(); }
    std::string Hint() { return app.Main().lblHelpInfo.Caption(); }
    std::string Status() { return app.Main().lblStatus.Caption(); }
    std::string Golden(const std::string& file) {
        return test::ReadFile(test::DataPath("entry/" + file));
    }
};

// ---- Golden entry files -------------------------------------------------------------------------

class EntryFile7311Golden : public EntryFile7311Test,
                            public ::testing::WithParamInterface<std::string> {};

TEST_P(EntryFile7311Golden, WrittenFileMatchesGoldenWithAndWithoutDetails) {
    Use(GetParam());
    Cls().MakeEntryFile();
    const std::string path = dir + "/out.ent";
    for (bool details : {true, false}) {
        app.Main().mblnSaveEntryFileDescription = details;
        Cls().WriteEntryFile(path);
        EXPECT_EQ(test::ReadFile(path),
                  Golden(GetParam() + (details ? "_details.ent" : "_lean.ent")))
            << (details ? "details" : "lean");
    }
    // Every write asks the window for its limit check first.
    EXPECT_EQ(form->limitChecks, 2);
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Hint(), " Wrote to " + path);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_P(EntryFile7311Golden, GoldenFileReadsBackToTheSameImage) {
    Use(GetParam());
    Cls().MakeEntryFile();
    for (const char* suffix : {"_details.ent", "_lean.ent"}) {
        clsEntryFile read(errors);
        ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + GetParam() + suffix), read));
        EXPECT_EQ(read.mintFCount, 24);
        EXPECT_EQ(read.mintICount, 69);
        for (int n = 0; n <= 23; ++n) EXPECT_NEAR(read.f(n), Image().f(n), 1e-9) << n;
        for (int n = 0; n <= 68; ++n) EXPECT_EQ(read.i(n), Image().i(n)) << n;
        EXPECT_EQ(read.mstrPartDescription, Image().mstrPartDescription);
        EXPECT_EQ(read.mstrRValue, "d");
        EXPECT_EQ(read.mintMValue, Image().mintMValue);
        EXPECT_EQ(read.mstrVersion, "01");
    }
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_P(EntryFile7311Golden, FamilyChecksumMatchesTheIndependentComputation) {
    Use(GetParam());
    const int expected = GoldenChecksum(GetParam());
    ASSERT_GT(expected, 0);
    EXPECT_EQ(Cls().Checksum(), expected);
    EXPECT_EQ(form->Checksum(), std::to_string(expected));
    // A file read back gives the same checksum without any window.
    clsEntryFile read(errors);
    ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + GetParam() + "_lean.ent"), read));
    EXPECT_EQ(mShared::CalculateChecksum(read, form->Device()), std::to_string(expected));
    EXPECT_EQ(clsEntryFile7311::CalculateChecksum(read, errors), expected);
}

TEST_P(EntryFile7311Golden, VectorFromTheWindowMatchesGolden) {
    Use(GetParam(), true);
    Cls().MakeEntryFile();
    const std::string path = dir + "/out.jed";
    Cls().MakeEPROMVector(path, true);
    EXPECT_EQ(test::ReadFile(path), Golden(GetParam() + ".jed"));
    // The checksum in the vector is the summary's, brought up to date first.
    EXPECT_EQ(app.Summary().lblChecksum.Caption(), std::to_string(GoldenChecksum(GetParam())));
    EXPECT_EQ(Hint(), " Wrote to " + path);
    EXPECT_EQ(Status(), "");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_P(EntryFile7311Golden, VectorFromTheSavedFileMatchesGolden) {
    Use(GetParam(), true);
    Cls().MakeEntryFile();
    const std::string saved = dir + "/saved file.ent";
    Cls().WriteEntryFile(saved);
    // The image then changes; the vector must come from the file, not from the image.
    Cls().Entry().set_i(23, 0);
    Cls().Entry().set_i(32, 200);
    app.Summary().txtFilename.SetText("saved file.ent");
    app.Main().mnuFilePathArray[1].SetCaption("&1 " + saved);
    const std::string path = dir + "/out.jed";
    Cls().MakeEPROMVector(path, false);
    EXPECT_EQ(test::ReadFile(path), Golden(GetParam() + ".jed"));
}

INSTANTIATE_TEST_SUITE_P(Cases, EntryFile7311Golden, ::testing::ValuesIn(kCases));

// ---- The image
// ------------------------------------------------------------------------------------

TEST_F(EntryFile7311Test, FormIsAcceptedOnlyForTheSevenDevices) {
    for (const char* device :
         {"QX7311", "QX7311F", "QX7311I", "QX7312", "QX7312F", "QX7312I", "QX5140"}) {
        Fake7311Form f(app, device);
        ASSERT_NE(f.mclsEntryFile.Form(), nullptr) << device;
        EXPECT_EQ(f.mclsEntryFile.Form()->Device(), device);
    }
    for (const char* device : {"QX4860", "QX3350", "qx7311", "QX7313", ""}) {
        Fake7311Form f(app, device);
        EXPECT_EQ(f.mclsEntryFile.Form(), nullptr) << device;
    }
}

TEST_F(EntryFile7311Test, MakeWithoutAFormReportsTheMissingForm) {
    clsEntryFile7311 cls(app);
    cls.MakeEntryFile();
    ASSERT_EQ(Numbers(), std::vector<long>({10153}));
    EXPECT_EQ(Description(0), "Property 'Form' is not set.");
    EXPECT_EQ(Source(0), "clsEntryFile7311.MakeEntryFile");
}

TEST_F(EntryFile7311Test, FixedValuesOfTheImage) {
    Use("QX7311_5V");
    Cls().MakeEntryFile();
    EXPECT_EQ(Image().mintFCount, 9);
    EXPECT_EQ(Image().mintICount, 69);
    EXPECT_EQ(Image().mstrRValue, "d");
    EXPECT_EQ(Image().mintMValue, 3000);
    EXPECT_EQ(Image().mstrPartDescription, "qx7311sc-01");
}

TEST_F(EntryFile7311Test, PartCodeByDeviceAndVoltage) {
    const std::pair<const char*, const char*> codes[] = {
        {"QX7311", "qx7311s"}, {"QX7311F", "qx7311fs"}, {"QX7311I", "qx7311is"},
        {"QX7312", "qx7312s"}, {"QX7312F", "qx7312fs"}, {"QX7312I", "qx7312is"}};
    app.Summary().txtRevision.SetText("");
    for (const auto& [device, code] : codes) {
        Fake7311Form f(app, device);
        f.opt5V.SetValue(true);
        f.mclsEntryFile.MakeEntryFile();
        EXPECT_EQ(f.mclsEntryFile.Entry().mstrPartDescription, std::string(code) + "c-");
        f.opt3V.SetValue(true);
        f.mclsEntryFile.MakeEntryFile();
        EXPECT_EQ(f.mclsEntryFile.Entry().mstrPartDescription, std::string(code) + "l-");
    }
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(EntryFile7311Test, MValueIs3003OnlyForQX7312AndQX7312IFrom25MHz) {
    const std::tuple<const char*, const char*, int> cases[] = {
        {"QX7312", "25", 3003},  {"QX7312I", "30", 3003}, {"QX7312", "24.99", 3000},
        {"QX7312F", "25", 3000}, {"QX7311", "25", 3000},  {"QX7311I", "27", 3000}};
    for (const auto& [device, ref, m] : cases) {
        Fake7311Form f(app, device);
        f.cboFRef.SetText(ref);
        f.mclsEntryFile.MakeEntryFile();
        EXPECT_EQ(f.mclsEntryFile.Entry().mintMValue, m) << device << " " << ref;
    }
}

TEST_F(EntryFile7311Test, AnotherDeviceInTheFamilyMakerIsInvalid) {
    Use("QX7311_5V");
    form->device = "QX7399";
    Cls().Make7311EntryFile();
    ASSERT_FALSE(Numbers().empty());
    EXPECT_EQ(Numbers().front(), 10301);
    EXPECT_EQ(Description(0), "Invalid device: QX7399");
    EXPECT_EQ(Source(0), "clsEntryFile7311.Make7311EntryFile");
}

TEST_F(EntryFile7311Test, QX5140GoesToItsOwnMapping) {
    Fake7311Form f(app, "QX5140");
    SetOnlyEntry(f.cboFRef, "25.00000 MHz");
    f.mclsEntryFile.MakeEntryFile();
    // The QX5140's layout: its own M value and bonding, every CPU block off to begin with.
    EXPECT_EQ(f.mclsEntryFile.Entry().mintMValue, 3004);
    EXPECT_EQ(f.mclsEntryFile.Entry().mintBValue, 1);
    EXPECT_EQ(f.mclsEntryFile.Entry().i(23), 3);
    EXPECT_EQ(f.mclsEntryFile.Entry().i(69 - 5), 1);
    // This window lacks the QX5140's fields, and says so by name.
    ASSERT_FALSE(Numbers().empty());
    EXPECT_EQ(Numbers().front(), 438);
    EXPECT_NE(Description(0).find("optSelect"), std::string::npos);
}

TEST_F(EntryFile7311Test, SwitchedOffLoopIsStoredAsP3Q3) {
    Use("QX7311_5V");  // UPLL "Off"
    Cls().MakeEntryFile();
    EXPECT_EQ(Image().i(18), 3);
    EXPECT_EQ(Image().i(19), 3);
    EXPECT_EQ(Image().i(6), 1);
    // Its data list may hold anything: the stored pair does not come from it.
    SetOnlyEntry(form->cboUPLLData, "96.000000 P:57 Q:17");
    form->txtSPLL.SetText("Off");
    Cls().MakeEntryFile();
    EXPECT_EQ(Image().i(18), 3);
    EXPECT_EQ(Image().i(19), 3);
    EXPECT_EQ(Image().i(21), 3);
    EXPECT_EQ(Image().i(22), 3);
    EXPECT_EQ(Image().i(7), 1);
    // A CPU selection at "Off" keeps P 3 and its data list's Q.
    EXPECT_EQ(Image().i(29 + 5 * 2), 1);
    EXPECT_EQ(Image().i(29 + 5 * 2 + 3), 3);
    EXPECT_EQ(Image().i(29 + 5 * 2 + 4), 2);
}

TEST_F(EntryFile7311Test, SuspendOfTheCPUZeroesTheFirstFourCPUFrequenciesOnly) {
    Use("QX7311_5V");
    for (int n = 0; n < 8; ++n) form->txtCPLL[n].SetText(std::to_string(40 + 10 * n));
    form->chkSusCPU.SetValue(1);
    Cls().MakeEntryFile();  // Suspend itself is clear: nothing is zeroed
    for (int n = 0; n < 8; ++n) EXPECT_DOUBLE_EQ(Image().f(n + 1), (40 + 10 * n) / 2.0) << n;
    form->chkSuspend.SetValue(1);
    Cls().MakeEntryFile();
    for (int n = 0; n < 4; ++n) EXPECT_EQ(Image().f(n + 1), 0) << n;
    for (int n = 4; n < 8; ++n) EXPECT_DOUBLE_EQ(Image().f(n + 1), (40 + 10 * n) / 2.0) << n;
    // The CPLL frequencies stay.
    for (int n = 0; n < 8; ++n) EXPECT_DOUBLE_EQ(Image().f(n + 16), 2.0 * (40 + 10 * n)) << n;
    form->chkSusCPU.SetValue(0);
    Cls().MakeEntryFile();
    EXPECT_DOUBLE_EQ(Image().f(1), 20);
}

TEST_F(EntryFile7311Test, SuspendColumnReplacesTheOffFlags) {
    Use("QX7311_5V");
    Cls().MakeEntryFile();
    EXPECT_EQ(Image().i(5), 0);
    EXPECT_EQ(Image().i(12), 1);  // CLKD "Off"
    form->chkSuspend.SetValue(1);
    form->chkSusClk[3].SetValue(0);
    form->chkSusClk[0].SetValue(1);
    form->chkSuspendUPLL.SetValue(0);
    form->chkSuspendCPLL.SetValue(1);
    form->chkOffCPLL.SetValue(0);
    form->chkSusClkF.SetValue(1);
    Cls().MakeEntryFile();
    EXPECT_EQ(Image().i(5), 1);
    EXPECT_EQ(Image().i(6), 0);
    EXPECT_EQ(Image().i(8), 1);
    EXPECT_EQ(Image().i(10), 1);
    EXPECT_EQ(Image().i(12), 0);
    EXPECT_EQ(Image().i(15), 1);
    form->chkSuspend.SetValue(0);
    form->chkOffCPLL.SetValue(1);
    Cls().MakeEntryFile();
    EXPECT_EQ(Image().i(8), 1);  // chkOffCPLL without Suspend
    EXPECT_EQ(Image().i(10), 0);
}

TEST_F(EntryFile7311Test, LeanCPULinesKeepTheirPAndQNames) {
    Use("QX7311_5V");
    Cls().MakeEntryFile();
    const std::string lean =
        clsEntryFile7311::EntryFileText(Image(), "QX7311", "H\r\n", false, false);
    EXPECT_NE(lean.find("# i 93        ;32 CPU0 P\r\n# i 20        ;33 CPU0 Q\r\n# i 0         "
                        ";34\r\n"),
              std::string::npos);
    EXPECT_NE(lean.find("# i 3         ;18 UPLL P\r\n"), std::string::npos);
    EXPECT_NE(lean.find("# i 1         ;0\r\n"), std::string::npos);
    EXPECT_NE(lean.find("# f  14.31818 ;0\r\n"), std::string::npos);
    const std::string full =
        clsEntryFile7311::EntryFileText(Image(), "QX7311", "H\r\n", true, false);
    // With details a blank line closes every CPU block.
    EXPECT_NE(full.find("# i 20        ;33 CPU0 Q\r\n\r\n# i 0         ;34 CPU1 shutdown (1-bit)"),
              std::string::npos);
    // The QX5140 image carries its bonding line.
    Cls().Entry().mintBValue = 2;
    EXPECT_NE(clsEntryFile7311::EntryFileText(Image(), "QX5140", "H\r\n", false, false)
                  .find("# r d\r\n# b 2\r\n# m 3000\r\n"),
              std::string::npos);
}

TEST_F(EntryFile7311Test, CommentsFollowTheDetailSetting) {
    clsEntryFile7311 cls(app);
    std::string r;
    app.Main().mblnSaveEntryFileDescription = true;
    cls.GetCommentF(0, r);
    EXPECT_EQ(r, "  Reference Frequency");
    cls.GetCommentF(4, r);
    EXPECT_EQ(r, "  Desired CPUCLK freq sel 011");
    cls.GetCommentF(10, r);
    EXPECT_EQ(r, " Desired UPLL");
    cls.GetCommentF(23, r);
    EXPECT_EQ(r, " Desired CPLL freq sel 111");
    cls.GetCommentI(4, r);
    EXPECT_EQ(r, "  VCOReg (0 if 3V AND VCO >= 110)");
    cls.GetCommentI(24, r);
    EXPECT_EQ(r, " ESEL - CPLL post divide (0=CPLL/2, 1=CPLL/4, 2=CPLL/8, 3=OFF)");
    cls.GetCommentCPU(3, 1, r);
    EXPECT_EQ(r, " CPU3 CPU_DLY0 (low order bit for slew control delay) (1-bit)");
    cls.GetCommentCPU(7, 4, r);
    EXPECT_EQ(r, " CPU7 Q\r\n");
    app.Main().mblnSaveEntryFileDescription = false;
    cls.GetCommentF(0, r);
    EXPECT_EQ(r, "");
    cls.GetCommentI(17, r);
    EXPECT_EQ(r, "");
    for (int n : {18, 19, 21, 22}) {
        cls.GetCommentI(n, r);
        EXPECT_FALSE(r.empty()) << n;
    }
    cls.GetCommentI(22, r);
    EXPECT_EQ(r, " SPLL Q");
    cls.GetCommentCPU(0, 2, r);
    EXPECT_EQ(r, "");
    cls.GetCommentCPU(0, 3, r);
    EXPECT_EQ(r, " CPU0 P");
    cls.GetCommentCPU(0, 4, r);
    EXPECT_EQ(r, " CPU0 Q");
}

// ---- Source codes
// ---------------------------------------------------------------------------------

TEST_F(EntryFile7311Test, SourceTextToCode) {
    clsEntryFile7311 cls(app);
    auto code = [&](const std::string& text, bool half) {
        std::int16_t r = -7;
        cls.ConvertPLLAndDivisorStringToInteger(text, half, r);
        return static_cast<int>(r);
    };
    EXPECT_EQ(code("CPLL/2", true), 4);
    EXPECT_EQ(code("CPLL/8", true), 6);
    EXPECT_EQ(code("cpll/4", false), 6);
    EXPECT_EQ(code("Ref/3", false), 2);
    EXPECT_EQ(code("Ref/8", false), 2);
    EXPECT_EQ(code("SPLL/12", false), 18);  // the first match stands, never 24
    EXPECT_EQ(code("SPLL/24", true), 18);   // brought to SPLL/12
    EXPECT_EQ(code("SPLL/13", false), 28);
    EXPECT_EQ(code("SPLL/104", false), 31);
    EXPECT_EQ(code("OFF", false), 19);
    EXPECT_EQ(code("UPLL/16", true), 11);
    EXPECT_EQ(code("SPLL/5", true), 13);   // 2.5 rounds half to even: SPLL/2
    EXPECT_EQ(code("SPLL/3", true), 13);   // 1.5 rounds to 2
    EXPECT_EQ(code("SPLL/26", true), 28);  // SPLL/13
    EXPECT_EQ(code("Ref/2", true), 0);     // the reference is not halved
    EXPECT_TRUE(platform.Messages().empty());
    // Without a divisor the halved text is empty; an unknown text is refused. The result keeps
    // what it held.
    EXPECT_EQ(code("CPLL", true), -7);
    EXPECT_EQ(code("PLL/2", false), -7);
    ASSERT_EQ(Numbers(), std::vector<long>({10152, 10152}));
    EXPECT_EQ(Description(0), "PLL and divisor of '' not valid.");
    EXPECT_EQ(Description(1), "PLL and divisor of 'PLL/2' not valid.");
    EXPECT_EQ(Source(1), "clsEntryFile7311.ConvertPLLAndDivisorStringToInteger");
}

TEST_F(EntryFile7311Test, SourceCodeToTextAndBack) {
    clsEntryFile7311 cls(app);
    for (std::int16_t c = 0; c <= 31; ++c) {
        std::string text;
        cls.ConvertPLLAndDivisorIntegerToString(c, text);
        std::int16_t back = -1;
        cls.ConvertPLLAndDivisorStringToInteger(text, false, back);
        EXPECT_EQ(back, c == 24 ? 18 : c) << text;
    }
    std::string text = "unchanged";
    cls.ConvertPLLAndDivisorIntegerToString(24, text);
    EXPECT_EQ(text, "SPLL/12");
    cls.ConvertPLLAndDivisorIntegerToString(3, text);
    EXPECT_EQ(text, "Ref");
    cls.ConvertPLLAndDivisorIntegerToString(32, text);
    EXPECT_EQ(text, "Ref");
    cls.ConvertPLLAndDivisorIntegerToString(-1, text);
    ASSERT_EQ(Numbers(), std::vector<long>({10151, 10151}));
    EXPECT_EQ(Description(0), "PLL source of '32' not valid.");
    EXPECT_EQ(Description(1), "PLL source of '-1' not valid.");
}

// ---- Bits
// -----------------------------------------------------------------------------------------

TEST_F(EntryFile7311Test, CPUBits) {
    Use("QX7311_5V");
    std::int16_t r = -1;
    Cls().GetCPUBit(1, 0, false, r);
    EXPECT_EQ(r, 1);
    Cls().GetCPUBit(2, 0, false, r);
    EXPECT_EQ(r, 2);
    Cls().GetCPUBit(3, 1, false, r);
    EXPECT_EQ(r, 126);
    Cls().GetCPUBit(3, 1, true, r);
    EXPECT_EQ(r, 3);
    Cls().GetCPUBit(4, 1, true, r);
    EXPECT_EQ(r, 18);
    EXPECT_TRUE(platform.Messages().empty());
    r = 9;
    Cls().GetCPUBit(5, 0, false, r);
    Cls().GetCPUBit(0, 0, false, r);
    EXPECT_EQ(r, 9);
    ASSERT_EQ(Numbers(), std::vector<long>({10154, 10154}));
    EXPECT_EQ(Description(0), "BitField value '5' is invalid.");
    EXPECT_EQ(Description(1), "BitField value '0' is invalid.");
    // The QX5140 takes P from its data list even for a selection that is off.
    form->device = "QX5140";
    Cls().GetCPUBit(3, 1, true, r);
    EXPECT_EQ(r, 126);
}

TEST_F(EntryFile7311Test, ConfigurationBits) {
    Use("QX7311_5V");
    auto bit = [&](int field) {
        std::int16_t r = -1;
        Cls().GetConfigurationEPROMBit(static_cast<std::int16_t>(field), r);
        return static_cast<int>(r);
    };
    EXPECT_EQ(bit(1), 1);
    EXPECT_EQ(bit(2), 1);
    EXPECT_EQ(bit(3), 0);
    EXPECT_EQ(bit(4), 1);  // 5 V: always 1
    EXPECT_EQ(bit(16), 1);
    form->opt3V.SetValue(true);
    EXPECT_EQ(bit(1), 0);
    EXPECT_EQ(bit(2), 0);
    EXPECT_EQ(bit(4), 0);  // 266.6 MHz in CPLL row 5
    for (int n = 0; n < 8; ++n) SetOnlyEntry(form->cboCPLLData[n], "109.999999 P:50 Q:13");
    SetOnlyEntry(form->cboSPLLData, "96.000000 P:57 Q:17");
    EXPECT_EQ(bit(4), 1);
    SetOnlyEntry(form->cboUPLLData, "110.000000 P:57 Q:17");
    EXPECT_EQ(bit(4), 0);

    // Index of a loop: the larger of twice the desired frequency and the VCO of its data.
    form->txtUPLL.SetText("29.99");
    SetOnlyEntry(form->cboUPLLData, "0.000000 P:5 Q:2");
    EXPECT_EQ(bit(17), 3);
    form->txtUPLL.SetText("30");
    EXPECT_EQ(bit(17), 2);
    form->txtUPLL.SetText("Off");
    SetOnlyEntry(form->cboUPLLData, "60.000000 P:57 Q:17");
    EXPECT_EQ(bit(17), 2);
    form->txtSPLL.SetText("10");
    SetOnlyEntry(form->cboSPLLData, "59.999000 P:57 Q:17");
    EXPECT_EQ(bit(20), 3);
    EXPECT_TRUE(platform.Messages().empty());

    EXPECT_EQ(bit(0), -1);
    EXPECT_EQ(bit(5), -1);
    EXPECT_EQ(bit(18), -1);
    ASSERT_EQ(Numbers(), std::vector<long>({10159, 10159, 10159}));
    EXPECT_EQ(Description(1), "Invalid parameter intBitField: '5'.");
    EXPECT_EQ(Source(0), "clsEntryFile7311.GetConfigurationEPROMBit");
}

// ---- Checksum and vector details
// --------------------------------------------------------------------

TEST_F(EntryFile7311Test, FamilyChecksumWorkedByHandForAnAllZeroImage) {
    // Counters at their offsets and every other field 0: 220 zeros, checksum 0. A switched-off
    // loop (3, 3) counts with its offsets: 3 - 2 = 1 in the Q field.
    clsEntryFile e(errors);
    for (int n = 29; n <= 68; n += 5) {
        e.set_i(n + 3, 3);
        e.set_i(n + 4, 2);
    }
    e.set_i(18, 3);
    e.set_i(19, 2);
    e.set_i(21, 3);
    e.set_i(22, 2);
    EXPECT_EQ(clsEntryFile7311::CalculateChecksum(e, errors), 0);
    // UPLL Q of 3: "0000001" at characters 174 to 180 (from 1), so the group 177-180 reads
    // "0001": 1.
    e.set_i(19, 3);
    EXPECT_EQ(clsEntryFile7311::CalculateChecksum(e, errors), 1);
    // The first digit of the text is the shutdown field of selection 0: "1000" is 8.
    e.set_i(29, 1);
    EXPECT_EQ(clsEntryFile7311::CalculateChecksum(e, errors), 9);
    EXPECT_EQ(mShared::CalculateChecksum(e, "QX5140"), "9");
    EXPECT_EQ(mShared::CalculateChecksum(e, "QX7312F"), "9");
    EXPECT_EQ(mShared::CalculateChecksum(e, "QX3350"), "n/a");
}

TEST_F(EntryFile7311Test, VectorHeadsByDevice) {
    clsEntryFile e(errors);
    clsEntryFile7311::Identity id;
    id.Checksum = "12";
    auto qp = [&](const std::string& device) {
        const std::string text = clsEntryFile7311::EPROMVectorText(e, device, "T", "B", id, false);
        const size_t at = text.find("QP");
        return at == std::string::npos ? std::string() : text.substr(at, 20);
    };
    EXPECT_EQ(qp("QX7311"), "QP0020* QF0336* G0 *");
    EXPECT_EQ(qp("QX7311F"), "QP0020* QF0336* G0 *");
    EXPECT_EQ(qp("QX7312"), "QP0016* QF0336* G0 *");
    EXPECT_EQ(qp("QX7312F"), "QP0016* QF0336* G0 *");
    EXPECT_EQ(qp("QX7311I"), "");
    EXPECT_EQ(qp("QX7312I"), "");
    EXPECT_EQ(qp("QX5140"), "");
    const std::string text = clsEntryFile7311::EPROMVectorText(e, "QX7311I", "T", "B", id, true);
    EXPECT_EQ(text.substr(0, 3), "\x02\r\n");
    EXPECT_NE(text.find("Generated by T - B\r\nVarnhol Semiconductor\r\nPendulon Checksum = 12\r\n"
                        "ONE OR MORE DESIRED PLL(S) IS OUT OF DEFAULT RANGE\r\n*\r\nL0000\r\n"),
              std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 7),
              "\x03"
              "0000\r\n");
}

TEST_F(EntryFile7311Test, IdentityRowChangesWithTheDateOnly) {
    clsEntryFile e(errors);
    clsEntryFile7311::Identity id;
    id.Checksum = "281";
    id.Version = {3, 71, 10};
    id.Date = DateTime{2026, 11, 21};
    id.Device = "QX7312";
    const std::string row = clsEntryFile7311::FuseRow(e, 9, id);
    EXPECT_EQ(row,
              "0100011001"
              "0011"
              "1000111"
              "0000001010"
              "10101"
              "1011"
              "011111101010"
              "110011110000"
              "000000000000"
              "1001");
    id.Date = DateTime{2026, 11, 22};
    const std::string next = clsEntryFile7311::FuseRow(e, 9, id);
    EXPECT_NE(next, row);
    EXPECT_EQ(next.substr(31, 5), "10110");
    EXPECT_EQ(next.substr(0, 31), row.substr(0, 31));
    EXPECT_EQ(next.substr(36), row.substr(36));
    // Only the plain QX7312 carries 3312; every other device 3311.
    id.Device = "QX7312F";
    EXPECT_EQ(clsEntryFile7311::FuseRow(e, 9, id).substr(52, 12), "110011101111");
    // The rows before it do not move with the date.
    for (int r = 0; r <= 8; ++r)
        EXPECT_EQ(clsEntryFile7311::FuseRow(e, r, id),
                  clsEntryFile7311::FuseRow(e, r, clsEntryFile7311::Identity{}));
}

TEST_F(EntryFile7311Test, VectorOfTheSameConfigurationMadeNextDayDiffersInIdentityAndSum) {
    Use("QX7312_5V", true);
    Cls().MakeEntryFile();
    Cls().MakeEPROMVector(dir + "/a.jed", true);
    platform.SetNow(DateTime{2026, 11, 22, 10, 0, 0});
    Cls().MakeEPROMVector(dir + "/b.jed", true);
    const std::string a = test::ReadFile(dir + "/a.jed");
    const std::string b = test::ReadFile(dir + "/b.jed");
    ASSERT_EQ(a.size(), b.size());
    const size_t row9 = a.find("*\r\nC") - 80;
    EXPECT_EQ(a.substr(0, row9), b.substr(0, row9));
    EXPECT_EQ(a.substr(row9 + 31, 5), "10101");  // day 21
    EXPECT_EQ(b.substr(row9 + 31, 5), "10110");  // day 22
    const size_t sum = a.find("\r\nC") + 3;
    EXPECT_NE(a.substr(sum, 4), b.substr(sum, 4));
    EXPECT_EQ(a, Golden("QX7312_5V.jed"));
}

TEST_F(EntryFile7311Test, VectorWithoutAnOpenDocumentCarriesTheSummarysNotAvailable) {
    Use("QX7311_5V");  // not the program's document: the summary shows "n/a"
    Cls().MakeEntryFile();
    Cls().MakeEPROMVector(dir + "/v.jed", true);
    const std::string text = test::ReadFile(dir + "/v.jed");
    EXPECT_NE(text.find("\r\nPendulon Checksum = n/a\r\n"), std::string::npos);
    const size_t row9 = text.find("*\r\nC") - 80;
    EXPECT_EQ(text.substr(row9, 10), "0000000000");
    EXPECT_EQ(app.Summary().lblChecksum.Caption(), "n/a");
}

TEST_F(EntryFile7311Test, QX5140TakesTheLargestVCOOfItsTwoSelectStates) {
    Use("QX7311_5V");
    form->device = "QX5140";
    form->opt3V.SetValue(true);
    for (int n = 0; n < 8; ++n) SetOnlyEntry(form->cboCPLLData[n], "50.000000 P:50 Q:13");
    SetOnlyEntry(form->cboCPLLData[2], "150.000000 P:50 Q:13");  // not one of its states
    std::int16_t r = -1;
    Cls().GetConfigurationEPROMBit(4, r);
    EXPECT_EQ(r, 1);
    SetOnlyEntry(form->cboCPLLData[1], "110.000000 P:50 Q:13");
    Cls().GetConfigurationEPROMBit(4, r);
    EXPECT_EQ(r, 0);
    // Its loop indices come from the data lists alone.
    form->txtUPLL.SetText("100");
    SetOnlyEntry(form->cboUPLLData, "59.000000 P:50 Q:13");
    Cls().GetConfigurationEPROMBit(17, r);
    EXPECT_EQ(r, 3);
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(EntryFile7311Test, SwitchedOffLoopGoesIntoTheFusesWithoutOffsets) {
    clsEntryFile e(errors);
    e.set_i(18, 3);
    e.set_i(19, 3);
    e.set_i(21, 3);
    e.set_i(22, 3);
    const std::string row = clsEntryFile7311::FuseRow(e, 8, {});
    ASSERT_EQ(row.size(), 80u);
    EXPECT_EQ(row.substr(19, 10), "0000000011");
    EXPECT_EQ(row.substr(29, 7), "0000011");
    EXPECT_EQ(row.substr(38, 8), "00000011");
    EXPECT_EQ(row.substr(46, 6), "000011");
    EXPECT_EQ(row.substr(76), "1000");
    // Any other pair loses its offsets.
    e.set_i(19, 9);
    const std::string on = clsEntryFile7311::FuseRow(e, 8, {});
    EXPECT_EQ(on.substr(19, 10), "0000000000");
    EXPECT_EQ(on.substr(29, 7), "0000111");
}

TEST_F(EntryFile7311Test, ReadFileChecksumIsUsedForAFileWithoutWindow) {
    clsEntryFile read(errors);
    ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/QX7312_5V_details.ent"), read));
    EXPECT_EQ(
        mShared::CalculateChecksum(read, mFileAccessor::SummaryDevice(read.mstrPartDescription)),
        std::to_string(GoldenChecksum("QX7312_5V")));
}

// ---- Failures of the file writes
// -----------------------------------------------------------------------

TEST_F(EntryFile7311Test, WriteShowsTheStatusWhileWritingThenTheHint) {
    Use("QX7312_5V");
    Cls().MakeEntryFile();
    std::vector<std::string> seen;
    app.Main().lblStatus.AddObserver([&](Field& f) { seen.push_back(f.Caption()); });
    Cls().WriteEntryFile(dir + "/s.ent");
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), "Writing QX7312 entry file...");
    EXPECT_EQ(seen.back(), "");
}

TEST_F(EntryFile7311Test, FailedWriteKeepsTheOldFile) {
    const std::string old = test::WriteBytes(dir, "keep.ent", "old");
    Use("QX7311_5V");
    Cls().MakeEntryFile();
    Cls().WriteEntryFile(old + "/copy.ent");
    Cls().MakeEPROMVector(old + "/copy.jed", true);
    EXPECT_EQ(Numbers(), std::vector<long>({75, 75}));
    EXPECT_EQ(test::ReadFile(old), "old");
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(dir)) ++entries;
    EXPECT_EQ(entries, 1u);
    EXPECT_EQ(Hint(), "");
}

TEST_F(EntryFile7311Test, VectorFromAMissingSavedFileReportsIt) {
    Use("QX7311_5V");
    app.Summary().txtFilename.SetText("x.ent");
    app.Main().mnuFilePathArray[1].SetCaption("&1 " + dir + "/gone.ent");
    Cls().MakeEPROMVector(dir + "/v.jed", false);
    ASSERT_FALSE(Numbers().empty());
    EXPECT_EQ(Numbers().front(), 10051);
}

}  // namespace
}  // namespace pendulon
