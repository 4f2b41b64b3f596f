#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "EntryTestSupport.hpp"
#include "FakeForms.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile4860.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "app/mSharedApp.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using test::Fake4860Form;
using test::Fake6105AForm;
using test::FakeFormBase;

void SetPLLData(ListField& list, const std::string& text) {
    test::SetOnlyEntry(list, text);
}
void SetReferenceText(ListField& list, const std::string& text) {
    test::SetOnlyEntry(list, text);
}

// The form settings of each golden case; tests/data/make_entry_goldens.py lists the image
// these settings must give.
std::unique_ptr<Fake6105AForm> Form6105AFS(Application& app,
                                           const std::string& device = "QX6105A") {
    auto f = std::make_unique<Fake6105AForm>(app, device);
    f->opt5V.SetValue(true);
    f->optFS.SetValue(true);
    SetReferenceText(f->cboFRef, "14.31818 MHz");
    f->txtPLL[0].SetText("100");
    SetPLLData(f->cboPLLData[0], "190.000000 P:100 Q:7");
    f->txtPLL[1].SetText("33.3");
    f->prescale[1] = true;
    SetPLLData(f->cboPLLData[1], "133.200000 P:60 Q:13");
    f->cboClkDiv[0].SetListIndex(1);
    f->cboClkDiv[1].SetListIndex(8);
    f->cboClkDiv[2].SetListIndex(0);
    f->chkSmoothSlew.SetValue(1);
    return f;
}

std::unique_ptr<Fake6105AForm> Form6105AOE(Application& app) {
    auto f = std::make_unique<Fake6105AForm>(app, "QX6105A");
    f->opt3V.SetValue(true);
    f->optOE.SetValue(true);
    SetReferenceText(f->cboFRef, "25.00000 MHz");
    f->txtPLL[0].SetText("48");
    f->txtPLL[0].SetForeColor(colors::Red);
    SetPLLData(f->cboPLLData[0], "15.000000 P:30 Q:100");
    f->cboClkDiv[0].SetListIndex(0);
    f->cboClkDiv[1].SetListIndex(2);
    f->cboClkDiv[2].SetListIndex(8);
    return f;
}

std::unique_ptr<Fake6105AForm> Form6105AF(Application& app) {
    auto f = std::make_unique<Fake6105AForm>(app, "QX6105AF");
    f->opt5V.SetValue(true);
    f->optFS.SetValue(true);
    SetReferenceText(f->cboFRef, "14.31818 MHz");
    f->txtPLL[0].SetText("125");
    SetPLLData(f->cboPLLData[0], "250.000000 P:200 Q:23");
    f->txtPLL[1].SetText("50");
    SetPLLData(f->cboPLLData[1], "100.000000 P:50 Q:7");
    for (int k = 0; k < 3; ++k) f->cboClkDiv[k].SetListIndex(3);
    return f;
}

std::unique_ptr<Fake4860Form> Form4860_14(Application& app) {
    auto f = std::make_unique<Fake4860Form>(app, "QX4860");
    f->opt5V.SetValue(true);
    f->opt14Pin.SetValue(true);
    SetReferenceText(f->cboFRef, "14.31818 MHz");
    f->txtPLL[0].SetText("100");
    SetPLLData(f->cboPLLData[0], "200.000000 P:100 Q:7");
    f->txtPLL[1].SetText("25.5");
    f->prescale[1] = true;
    SetPLLData(f->cboPLLData[1], "102.000000 P:50 Q:7");
    f->txtPLL[2].SetText("1000.5");
    SetPLLData(f->cboPLLData[2], "Off");
    f->txtPLL[3].SetText("98");
    SetPLLData(f->cboPLLData[3], "196.000000 P:137 Q:10");
    for (int k = 4; k < 16; ++k) {
        f->txtPLL[k].SetText("Off");
        SetPLLData(f->cboPLLData[k], "0.000000 P:5 Q:2");
    }
    f->chkSmoothSlew.SetValue(1);
    f->cboClkADiv.SetListIndex(2);
    f->cboRefClkDiv.SetListIndex(0);
    f->chkOEClockA.SetValue(1);
    f->chkOEReference.SetValue(1);
    f->chkPowerDown.SetValue(0);
    f->chkPLLStop.SetValue(1);
    f->chkPLLAndOscillatorStop.SetValue(0);
    return f;
}

std::unique_ptr<Fake4860Form> Form4860_8(Application& app) {
    auto f = std::make_unique<Fake4860Form>(app, "QX4860");
    f->opt5V.SetValue(true);
    f->opt8Pin.SetValue(true);
    SetReferenceText(f->cboFRef, "27.00000 MHz");
    f->txtPLL[0].SetText("33.333");
    SetPLLData(f->cboPLLData[0], "133.332000 P:37 Q:15");
    f->txtPLL[1].SetText("66.666");
    f->prescale[1] = true;
    SetPLLData(f->cboPLLData[1], "133.330000 P:42 Q:17");
    f->txtPLL[2].SetText("Off");
    SetPLLData(f->cboPLLData[2], "0.000000 P:5 Q:2");
    f->txtPLL[3].SetText("150");
    SetPLLData(f->cboPLLData[3], "150.000000 P:75 Q:27");
    for (int k = 4; k < 16; ++k) f->txtPLL[k].SetText("999");  // not in use with 8 pins
    f->cboClkADiv.SetListIndex(8);
    f->cboRefClkDiv.SetListIndex(1);
    f->chkOEClockA.SetValue(1);
    f->chkPowerDown.SetValue(1);
    f->chkPLLAndOscillatorStop.SetValue(1);
    return f;
}

std::unique_ptr<Fake4860Form> Form4860F(Application& app, const std::string& device = "QX4860F") {
    auto f = std::make_unique<Fake4860Form>(app, device);
    f->opt3V.SetValue(true);
    f->opt14Pin.SetValue(true);
    SetReferenceText(f->cboFRef, "10.00000 MHz");
    f->txtPLL[0].SetText("80");
    SetPLLData(f->cboPLLData[0], "160.000000 P:80 Q:10");
    for (int k = 1; k < 16; ++k) {
        f->txtPLL[k].SetText("Off");
        SetPLLData(f->cboPLLData[k], "0.000000 P:5 Q:2");
    }
    f->cboClkADiv.SetListIndex(0);
    f->cboRefClkDiv.SetListIndex(8);
    f->chkOEReference.SetValue(1);
    f->chkPowerDown.SetValue(1);
    return f;
}

std::unique_ptr<FakeFormBase> MakeCase(Application& app, const std::string& name) {
    if (name == "QX6105A_FS")
        return Form6105AFS(app);
    if (name == "QX6105A_OE")
        return Form6105AOE(app);
    if (name == "QX6105AF")
        return Form6105AF(app);
    if (name == "QX4860_14")
        return Form4860_14(app);
    if (name == "QX4860_8")
        return Form4860_8(app);
    if (name == "QX4860F")
        return Form4860F(app);
    if (name == "QX4860I")
        return Form4860F(app, "QX4860I");
    return nullptr;
}

class EntryFile4860Test : public ::testing::Test, public test::AppFixture {
  protected:
    clsEntryFile4860 cls{app};
    std::unique_ptr<FakeFormBase> form;
    std::string dir = test::MakeTempDir();

    // Makes the form of a case and hands it to the class.
    void Use(std::unique_ptr<FakeFormBase> made) {
        form = std::move(made);
        cls.SetForm(*form);
        ASSERT_NE(cls.Form(), nullptr);
    }
    void Use(const std::string& name) { Use(MakeCase(app, name)); }

    std::string EntryText(const std::string& name, bool details) {
        Use(name);
        const bool out = form->txtPLL[0].ForeColor() == colors::Red;
        cls.MakeEntryFile();
        return clsEntryFile4860::EntryFileText(cls.Entry(), form->Device(),
                                               mShared::EntryFileHeader(app), details, out);
    }
    std::string Hint() { return app.Main().lblHelpInfo.Caption(); }
    std::string Status() { return app.Main().lblStatus.Caption(); }
};

class EntryFileGoldenTest : public EntryFile4860Test,
                            public ::testing::WithParamInterface<std::string> {};

TEST_P(EntryFileGoldenTest, TextWithDetailsMatchesGoldenByteForByte) {
    EXPECT_EQ(EntryText(GetParam(), true),
              test::ReadFile(test::DataPath("entry/" + GetParam() + "_details.ent")));
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_P(EntryFileGoldenTest, TextWithoutDetailsMatchesGoldenByteForByte) {
    EXPECT_EQ(EntryText(GetParam(), false),
              test::ReadFile(test::DataPath("entry/" + GetParam() + "_lean.ent")));
}

TEST_P(EntryFileGoldenTest, WriteEntryFileWritesTheTextAndReportsProgress) {
    Use(GetParam());
    cls.MakeEntryFile();
    const std::string path = dir + "/out.ent";
    for (bool details : {true, false}) {
        app.Main().mblnSaveEntryFileDescription = details;
        cls.WriteEntryFile(path);
        EXPECT_EQ(test::ReadFile(path),
                  test::ReadFile(test::DataPath("entry/" + GetParam() +
                                                (details ? "_details.ent" : "_lean.ent"))));
    }
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Hint(), " Wrote to " + path);
}

TEST_P(EntryFileGoldenTest, GoldenFileReadsBackToTheSameImage) {
    EntryText(GetParam(), true);
    for (const char* suffix : {"_details.ent", "_lean.ent"}) {
        clsEntryFile read(errors);
        ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + GetParam() + suffix), read));
        EXPECT_EQ(read.mintFCount, 17);
        EXPECT_EQ(read.mintICount, 130);
        for (int n = 0; n <= 16; ++n) EXPECT_NEAR(read.f(n), cls.Entry().f(n), 1e-9) << n;
        for (int n = 0; n <= 129; ++n) EXPECT_EQ(read.i(n), cls.Entry().i(n)) << n;
        EXPECT_EQ(read.mstrPartDescription, cls.Entry().mstrPartDescription);
        EXPECT_EQ(read.mstrVersion, "01");
        EXPECT_EQ(read.mstrCustomer, "Acme");
    }
    EXPECT_TRUE(platform.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, EntryFileGoldenTest,
                         ::testing::Values("QX6105A_FS", "QX6105A_OE", "QX6105AF", "QX4860_14",
                                           "QX4860_8", "QX4860F"));

class VectorGoldenTest : public EntryFile4860Test,
                         public ::testing::WithParamInterface<std::string> {};

TEST_P(VectorGoldenTest, VectorFromTheFormMatchesGoldenByteForByte) {
    Use(GetParam());
    cls.MakeEntryFile();
    const std::string path = dir + "/out.jed";
    cls.MakeEPROMVector(path, true);
    EXPECT_EQ(test::ReadFile(path), test::ReadFile(test::DataPath("entry/" + GetParam() + ".jed")));
    EXPECT_EQ(Hint(), " Wrote to " + path);
    EXPECT_EQ(Status(), "");
    EXPECT_TRUE(platform.Messages().empty());
}

TEST_P(VectorGoldenTest, VectorFromTheSavedFileMatchesGolden) {
    const std::string name = GetParam();
    Use(name);
    cls.MakeEntryFile();
    const std::string saved = dir + "/saved file.ent";
    cls.WriteEntryFile(saved);
    // The form then changes; the vector must come from the file, not from the form.
    cls.Entry().set_i(23, 99);
    app.Summary().txtFilename.SetText("saved file.ent");
    app.Main().mnuFilePathArray[1].SetCaption("&1 " + saved);
    const std::string path = dir + "/out.jed";
    cls.MakeEPROMVector(path, false);
    EXPECT_EQ(test::ReadFile(path), test::ReadFile(test::DataPath("entry/" + name + ".jed")));
}

INSTANTIATE_TEST_SUITE_P(Cases, VectorGoldenTest,
                         ::testing::Values("QX6105A_FS", "QX6105AF", "QX4860_8", "QX4860F",
                                           "QX4860I"));

TEST_F(EntryFile4860Test, WriteShowsTheStatusWhileWritingThenTheHint) {
    Use("QX6105AF");
    cls.MakeEntryFile();
    std::vector<std::string> seen;
    app.Main().lblStatus.AddObserver([&](Field& f) { seen.push_back(f.Caption()); });
    cls.WriteEntryFile(dir + "/s.ent");
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), "Writing QX6105AF entry file...");
    EXPECT_EQ(seen.back(), "");
    EXPECT_EQ(Hint(), " Wrote to " + dir + "/s.ent");
}

TEST_F(EntryFile4860Test, FormIsAcceptedOnlyForTheSixDevices) {
    for (const char* device : {"QX4860", "QX4860F", "QX4860I", "QX6105A", "QX6105AF", "QX6105AI"}) {
        clsEntryFile4860 c(app);
        Fake4860Form f(app, device);
        c.SetForm(f);
        ASSERT_NE(c.Form(), nullptr) << device;
        EXPECT_EQ(c.Form()->Device(), device);
    }
    for (const char* device : {"QX7311", "QX3350", "qx4860", "QX4860X", ""}) {
        clsEntryFile4860 c(app);
        Fake4860Form f(app, device);
        c.SetForm(f);
        EXPECT_EQ(c.Form(), nullptr) << device;
    }
}

TEST_F(EntryFile4860Test, EightPinImageHoldsFourFrequenciesAtTheOddSelections) {
    EntryText("QX4860_8", true);
    const clsEntryFile& e = cls.Entry();
    for (int n = 1; n <= 16; ++n) {
        if (n == 10)
            EXPECT_DOUBLE_EQ(e.f(n), 33.333);
        else if (n == 12)
            EXPECT_DOUBLE_EQ(e.f(n), 133.332);
        else if (n == 16)
            EXPECT_DOUBLE_EQ(e.f(n), 150);
        else
            EXPECT_EQ(e.f(n), 0) << n;
    }
    EXPECT_EQ(e.i(18 + 7 * 9 + 5), 37);
    EXPECT_EQ(e.i(18 + 7 * 11 + 5), 42);
    EXPECT_EQ(e.i(18 + 7 * 15 + 6), 27);
    EXPECT_EQ(e.i(18 + 7 * 10 + 5), 5);  // unused selections keep the default
    EXPECT_EQ(e.mintPValue, 8);
    EXPECT_EQ(e.mintFCount, 17);
    EXPECT_EQ(e.mintICount, 18);
}

TEST_F(EntryFile4860Test, SelectionWithoutSolutionGivesLowCurrentAndZeroPQ) {
    EntryText("QX4860_14", true);
    const int base = 18 + 7 * 2;
    EXPECT_EQ(cls.Entry().i(base + 2), 1);
    EXPECT_EQ(cls.Entry().i(base + 5), 0);
    EXPECT_EQ(cls.Entry().i(base + 6), 0);
}

TEST_F(EntryFile4860Test, LeanFLinesHaveNoCommentButEmptyLineBehindEight) {
    const std::string text = EntryText("QX4860_14", false);
    EXPECT_NE(text.find("# f  14.31818 ;0\r\n# f 100.00000 ;1\r\n"), std::string::npos);
    EXPECT_NE(text.find("# f   0.00000 ;8\r\n\r\n# f   0.00000 ;9\r\n"), std::string::npos);
}

TEST_F(EntryFile4860Test, ILinesFromHundredOnHaveNoBlankBeforeTheComment) {
    const std::string text = EntryText("QX4860_14", true);
    EXPECT_NE(text.find("# i 1         ;99  Add 5ns to PLL slew delay window (1 bit)\r\n"),
              std::string::npos);
    EXPECT_NE(text.find("# i 5         ;100 P (decimal P Value)\r\n"), std::string::npos);
    EXPECT_NE(text.find("# i 0         ;102 RESERVED (1 bit)\r\n"), std::string::npos);
    EXPECT_EQ(text.find(";100  P"), std::string::npos);
    const std::string lean = EntryText("QX4860_14", false);
    EXPECT_NE(lean.find("# i 0         ;18 \r\n"), std::string::npos);
    EXPECT_NE(lean.find("# i 0         ;102\r\n"), std::string::npos);
    EXPECT_NE(lean.find("# i 5         ;100 P (decimal P Value)\r\n"), std::string::npos);
}

TEST_F(EntryFile4860Test, ConfigurationBitErrors) {
    Use(Form4860_14(app));
    EntryForm& view = *cls.Form();
    std::int16_t r = 5;
    cls.GetConfigurationEPROMBit(view, "18", r);
    EXPECT_EQ(r, 0);
    cls.GetConfigurationEPROMBit(view, "x", r);
    form->device = "QX7311";
    cls.GetConfigurationEPROMBit(view, "6", r);
    EXPECT_EQ(r, 0);
    cls.GetConfigurationEPROMBit(view, "2", r);  // the common fields need no device
    EXPECT_EQ(r, 1);
    ASSERT_EQ(Numbers(), std::vector<long>({10102, 10102, 10103}));
    EXPECT_EQ(Description(0), "Parameter strWhichBit=18 not valid.");
    EXPECT_EQ(Description(2), "Device 'QX7311' not valid.");
}

TEST_F(EntryFile4860Test, CPUBitErrorsAndDefaults) {
    Use(Form4860_14(app));
    EntryForm& view = *cls.Form();
    double r = 9;
    cls.GetCPUEPROMBit(view, "7", 0, r);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(Numbers(), std::vector<long>({10101}));
    EXPECT_EQ(Description(0), "Parameter strWhichBit=7 not valid.");
    const double defaults[7] = {0, 0, 0, 1, 1, 5, 2};
    for (int b = 0; b <= 6; ++b) {
        cls.GetCPUEPROMBit(view, std::to_string(b), -1, r);
        EXPECT_EQ(r, defaults[b]);
    }
    cls.GetCPUEPROMBit(view, "5", 3, r);
    EXPECT_EQ(r, 137);
    cls.GetCPUEPROMBit(view, "1", 1, r);
    EXPECT_EQ(r, 1);
}

TEST_F(EntryFile4860Test, CommentsFollowTheDetailSetting) {
    std::string r;
    app.Main().mblnSaveEntryFileDescription = true;
    cls.GetCommentF(0, r);
    EXPECT_EQ(r, "  Reference Frequency\r\n");
    cls.GetCommentF(9, r);
    EXPECT_EQ(r, "  Desired PLL freq sel 1000");
    cls.GetCommentF(10, r);
    EXPECT_EQ(r, " Desired PLL freq sel 1001");
    cls.GetCommentI(17, r);
    EXPECT_EQ(r, " CLK1 Mux control (3 bits --- range: 0-7)\r\n");
    cls.CommentCPU(2, r);
    EXPECT_EQ(r, " PLL charge pump 2uA (low current) setting (1 bit)");
    app.Main().mblnSaveEntryFileDescription = false;
    cls.GetCommentF(0, r);
    EXPECT_EQ(r, "");
    cls.GetCommentF(8, r);
    EXPECT_EQ(r, "\r\n");
    cls.GetCommentI(5, r);
    EXPECT_EQ(r, "");
    cls.CommentCPU(0, r);
    EXPECT_EQ(r, "");
    cls.CommentCPU(5, r);
    EXPECT_EQ(r, " P (decimal P Value)");
    cls.CommentCPU(6, r);
    EXPECT_EQ(r, " Q (decimal Q Value)\r\n");
}

TEST_F(EntryFile4860Test, ChecksumRebuildsTheImageFromTheForm) {
    Use(Form4860_14(app));
    const std::int16_t first = cls.Checksum();
    SetPLLData(form->cboPLLData[0], "200.000000 P:101 Q:7");
    // P - 3 goes from 01100001 to 01100010 at characters 6 to 13 of the text: the group of
    // characters 9 to 12 gains 1 and the group of 13 to 16 loses 8.
    EXPECT_EQ(cls.Checksum(), first - 7);
    EXPECT_EQ(mShared::CalculateChecksum(cls.Entry(), "QX4860"), std::to_string(first - 7));
}

TEST_F(EntryFile4860Test, FamilyChecksumOfAllDefaultsWorkedByHand) {
    // Every selection at 0,0,0,1,1,5,2: "00011" + "00000010" + "0000000" per block, then
    // 12 zero digits and 15 zero bits. Groups of four over 347 characters.
    clsEntryFile e(errors);
    for (int s = 0; s < 16; ++s) {
        const int v[7] = {0, 0, 0, 1, 1, 5, 2};
        for (int b = 0; b < 7; ++b) e.set_i(18 + 7 * s + b, static_cast<std::int16_t>(v[b]));
    }
    std::string text;
    for (int s = 0; s < 16; ++s) text += "00011000000100000000";
    text += std::string(27, '0');
    ASSERT_EQ(text.size(), 347u);
    int expected = 0;
    for (size_t p = 0; p + 1 < text.size(); p += 4)
        expected += std::stoi(text.substr(p, 4), nullptr, 2);
    EXPECT_EQ(clsEntryFile4860::CalculateChecksum(e, errors), expected);
    EXPECT_EQ(mShared::CalculateChecksum(e, "QX6105AI"), std::to_string(expected));
}

TEST_F(EntryFile4860Test, OutOfRangeVectorCarriesTheWarning) {
    Use(Form6105AOE(app));
    cls.MakeEntryFile();
    const std::string path = dir + "/oe.jed";
    cls.MakeEPROMVector(path, true);
    const std::string text = test::ReadFile(path);
    EXPECT_NE(text.find("Varnhol Semiconductor\r\n\r\n    PLL(S) ARE OUT OF DEFAULT "
                        "RANGE\r\n\r\n*\r\nL0000\r\n"),
              std::string::npos);
}

TEST_F(EntryFile4860Test, EightPinVectorSaysQP008) {
    Use(Form4860_8(app));
    cls.MakeEntryFile();
    const std::string text =
        clsEntryFile4860::EPROMVectorText(cls.Entry(), "QX4860", "T", "B", false);
    EXPECT_NE(text.find("\r\nQP008* QF0884* G0 *\r\n"), std::string::npos);
    EXPECT_EQ(text.find("QP0008"), std::string::npos);
}

TEST_F(EntryFile4860Test, QX4860IAndPlainQX6105AHaveNoQPLine) {
    clsEntryFile e(errors);
    for (const char* device : {"QX4860I", "QX6105A", "QX6105AI"})
        EXPECT_EQ(clsEntryFile4860::EPROMVectorText(e, device, "T", "B", false).find("QP"),
                  std::string::npos);
    for (const char* device : {"QX4860", "QX4860F", "QX6105AF"})
        EXPECT_NE(clsEntryFile4860::EPROMVectorText(e, device, "T", "B", false).find("QP00"),
                  std::string::npos);
}

TEST_F(EntryFile4860Test, VectorFromMissingSavedFileReportsAndWritesNothing) {
    Use(Form4860F(app));
    app.Summary().txtFilename.SetText("x.ent");
    app.Main().mnuFilePathArray[1].SetCaption("&1 " + dir + "/gone.ent");
    // An old vector at the target stays as it was, byte for byte.
    const std::string target = dir + "/v.jed";
    test::WriteBytes(dir, "v.jed", "old vector\r\n");
    EXPECT_FALSE(cls.MakeEPROMVector(target, false));
    EXPECT_EQ(Numbers(), std::vector<long>({10051, 10056}));
    EXPECT_EQ(Description(1), "No EPROM vector was written to '" + target +
                                  "': the saved entry file was read with errors.");
    EXPECT_EQ(test::ReadFile(target), "old vector\r\n");
}

TEST_F(EntryFile4860Test, SelectionWithoutSolutionRefusesTheVectorNamingItsFields) {
    // Selection 2 found no solution: its P and Q are 0, which P less 3 in 8 fuses and Q less 2
    // in 7 fuses cannot hold.
    Use("QX4860_14");
    cls.MakeEntryFile();
    ASSERT_EQ(cls.Entry().i(37), 0);
    const std::string target = dir + "/v.jed";
    test::WriteBytes(dir, "v.jed", "old vector\r\n");
    EXPECT_FALSE(cls.MakeEPROMVector(target, true));
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(platform.Messages()[0].Text,
              ErrorReport::Text(
                  10055, "clsEntryFile4860.MakeEPROMVector",
                  "No EPROM vector was written to '" + target +
                      "': a value does not fit its fuses.\r\n"
                      "The value 0 of sel 0010 P (# i 37) does not fit its field, which holds 3 "
                      "to 258.\r\n"
                      "The value 0 of sel 0010 Q (# i 38) does not fit its field, which holds 2 "
                      "to 129."));
    EXPECT_EQ(test::ReadFile(target), "old vector\r\n");
    EXPECT_EQ(Hint(), "");
    EXPECT_EQ(Status(), "");
}

TEST_F(EntryFile4860Test, WriteToMissingFolderReportsAndLeavesNothing) {
    Use(Form4860F(app));
    cls.MakeEntryFile();
    cls.WriteEntryFile(dir + "/no/such/folder/x.ent");
    EXPECT_EQ(Numbers(), std::vector<long>({75}));
    EXPECT_FALSE(std::filesystem::exists(dir + "/no"));
    EXPECT_EQ(Hint(), "");
}

TEST_F(EntryFile4860Test, FailedWriteKeepsTheOldFile) {
    // The target's folder is a regular file, so no temporary file can be made beside the
    // target whatever the rights of the user running the test.
    const std::string old = test::WriteBytes(dir, "keep.ent", "old");
    Use(Form4860F(app));
    cls.MakeEntryFile();
    cls.WriteEntryFile(old + "/copy.ent");
    ASSERT_FALSE(Numbers().empty());
    EXPECT_EQ(Numbers().back(), 75);
    EXPECT_EQ(test::ReadFile(old), "old");
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(dir)) ++entries;
    EXPECT_EQ(entries, 1u);
}

TEST_F(EntryFile4860Test, FailedWriteOverAFolderKeepsItsContentAndLeavesNoTemporaryFile) {
    // A folder stands where the file should go: the rename fails even for the super-user.
    const std::filesystem::path target = std::filesystem::path(dir) / "taken.ent";
    std::filesystem::create_directory(target);
    const std::string inner = test::WriteBytes(target.string(), "inside.txt", "old");
    Use(Form4860F(app));
    cls.MakeEntryFile();
    cls.WriteEntryFile(target.string());
    ASSERT_FALSE(Numbers().empty());
    EXPECT_TRUE(std::filesystem::is_directory(target));
    EXPECT_EQ(test::ReadFile(inner), "old");
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(dir)) ++entries;
    EXPECT_EQ(entries, 1u);
}

TEST_F(EntryFile4860Test, SavingThroughALinkKeepsTheLinkAndWritesItsTarget) {
    namespace fs = std::filesystem;
    fs::create_directory(fs::path(dir) / "real");
    const std::string target = test::WriteBytes(dir + "/real", "design.ent", "old");
    const std::string link = dir + "/design.ent";
    fs::create_symlink("real/design.ent", link);
    const std::string vectorTarget = test::WriteBytes(dir + "/real", "design.jed", "old");
    const std::string vectorLink = dir + "/design.jed";
    fs::create_symlink(fs::absolute(vectorTarget), vectorLink);
    Use(Form4860F(app));
    cls.MakeEntryFile();

    cls.WriteEntryFile(link);
    cls.MakeEPROMVector(vectorLink, true);

    EXPECT_TRUE(Numbers().empty());
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(link)));
    EXPECT_EQ(fs::read_symlink(link), fs::path("real/design.ent"));
    EXPECT_NE(test::ReadFile(target), "old");
    EXPECT_NE(test::ReadFile(target).find("# f "), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(vectorLink)));
    EXPECT_NE(test::ReadFile(vectorTarget).find("L0000"), std::string::npos);
}

}  // namespace
}  // namespace pendulon
