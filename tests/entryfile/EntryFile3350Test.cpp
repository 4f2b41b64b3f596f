#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "EntryTestSupport.hpp"
#include "FakeForms.hpp"
#include "configurators/QX3350TestSupport.hpp"
#include "configurators/frmQX3350.hpp"
#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/ReadFile.hpp"
#include "entryfile/clsEntryFile3350.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"
#include "app/mSharedApp.hpp"
#include "support/TestSupport.hpp"

namespace pendulon {
namespace {

using testing::Case3350;
using testing::Cases3350;
using testing::FillList;

void Pick(ListField& list, const std::string& text) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text) {
            list.SetListIndex(i);
            return;
        }
    }
    FAIL() << "no entry " << text;
}

class EntryFile3350Test : public ::testing::Test, public test::AppFixture {
  protected:
    ~EntryFile3350Test() override { std::filesystem::remove_all(dir); }

    frmQX3350& Open(const std::string& device) {
        frmDevice& select = app.DeviceForm();
        select.CreateNew(true);
        select.OptionFor(device)->SetValue(true);
        select.cmdOK_Click();
        return dynamic_cast<frmQX3350&>(*app.Document());
    }
    frmQX3350& Form() { return dynamic_cast<frmQX3350&>(*app.Document()); }

    void Type(Field& field, const std::string& text) {
        Form().SetFocusTo(&field);
        if (auto* list = dynamic_cast<ListField*>(&field))
            list->SetText(text);
        else
            static_cast<TextField&>(field).SetText(text);
        Form().SetFocusTo(nullptr);
    }

    // Sets the window up as a user would for a case; the data lists are set last, as a user
    // picks a solution after Calculate.
    frmQX3350& Configure(const std::string& name) {
        const Case3350& c = Cases3350().at(name);
        frmQX3350& form = Open(c.device);
        // A new document starts with an empty summary.
        app.Summary().txtRevision.SetText(c.revision);
        testing::ConfigureCase(form, c);
        cls.SetForm(form);
        return form;
    }

    std::string EntryText(const std::string& name, bool details) {
        Configure(name);
        cls.MakeEntryFile();
        return clsEntryFile3350::EntryFileText(cls.Entry(), mShared::EntryFileHeader(app), details);
    }
    std::string Golden(const std::string& file) {
        return test::ReadFile(test::DataPath("entry/" + file));
    }
    std::string Hint() { return app.Main().lblHelpInfo.Caption(); }
    std::string Status() { return app.Main().lblStatus.Caption(); }
    std::string LastDescription() {
        return platform.Messages().empty() ? std::string()
                                           : Description(platform.Messages().size() - 1);
    }

    clsEntryFile3350 cls{app};
    std::string dir = test::MakeTempDir();
};

// ---------------------------------------------------------------- goldens

class EntryFile3350GoldenTest : public EntryFile3350Test,
                                public ::testing::WithParamInterface<std::string> {};

TEST_P(EntryFile3350GoldenTest, TextWithDetailsMatchesGoldenByteForByte) {
    EXPECT_EQ(EntryText(GetParam(), true), Golden(GetParam() + "_details.ent"));
    EXPECT_TRUE(platform.Messages().empty()) << LastDescription();
}

TEST_P(EntryFile3350GoldenTest, TextWithoutDetailsMatchesGoldenByteForByte) {
    EXPECT_EQ(EntryText(GetParam(), false), Golden(GetParam() + "_lean.ent"));
}

TEST_P(EntryFile3350GoldenTest, WriteEntryFileWritesTheTextAndReportsProgress) {
    Configure(GetParam());
    cls.MakeEntryFile();
    const std::string path = dir + "/out.ent";
    for (bool details : {true, false}) {
        app.Main().mblnSaveEntryFileDescription = details;
        cls.WriteEntryFile(path);
        EXPECT_EQ(test::ReadFile(path),
                  Golden(GetParam() + (details ? "_details.ent" : "_lean.ent")));
    }
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Hint(), " Wrote to " + path);
}

TEST_P(EntryFile3350GoldenTest, GoldenFileReadsBackToTheSameImage) {
    EntryText(GetParam(), true);
    for (const char* suffix : {"_details.ent", "_lean.ent"}) {
        clsEntryFile read(errors);
        ASSERT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + GetParam() + suffix), read));
        EXPECT_EQ(read.mintDCount, 1);
        EXPECT_EQ(read.mintFCount, 3);
        EXPECT_EQ(read.mintICount, 16);
        EXPECT_EQ(read.d(0), cls.Entry().d(0));
        for (int n = 0; n <= 2; ++n) EXPECT_NEAR(read.f(n), cls.Entry().f(n), 1e-9) << n;
        for (int n = 0; n <= 15; ++n) EXPECT_EQ(read.i(n), cls.Entry().i(n)) << n;
        EXPECT_EQ(read.mstrPartDescription, cls.Entry().mstrPartDescription);
        EXPECT_EQ(read.mstrVersion, Cases3350().at(GetParam()).revision);
        EXPECT_EQ(read.mstrRValue, "");
        EXPECT_EQ(read.mstrCustomer, "Acme");
    }
    EXPECT_TRUE(platform.Messages().empty()) << LastDescription();
}

TEST_P(EntryFile3350GoldenTest, VectorFromTheFormMatchesGoldenByteForByte) {
    Configure(GetParam());
    cls.MakeEntryFile();
    const std::string path = dir + "/out.jed";
    cls.MakeEPROMVector(path, true);
    EXPECT_EQ(test::ReadFile(path), Golden(GetParam() + ".jed"));
    EXPECT_EQ(Hint(), " Wrote to " + path);
    EXPECT_EQ(Status(), "");
    EXPECT_TRUE(platform.Messages().empty()) << LastDescription();
}

TEST_F(EntryFile3350Test, DutyAdjFromAThirdSolutionRefusesTheVector) {
    // TTL output takes the number of the chosen actual entry as Duty Adj, a one-fuse field: the
    // third entry gives 2, which the field cannot hold.
    frmQX3350& form = Configure("QX3350_P2750");
    testing::FillList(form.cboPLLData, {"249.998000 P:2750 Q:660", "250.001 P:2600 Q:624",
                                        "249.990 P:2575 Q:618"}, 2);
    testing::FillList(form.cboActual, {"249.99800  PPM:-8", "250.00100  PPM:4",
                                       "249.99000  PPM:-40"}, 2);
    cls.MakeEntryFile();
    ASSERT_EQ(cls.Entry().i(2), 2);
    const std::string path = dir + "/out.jed";
    EXPECT_FALSE(cls.MakeEPROMVector(path, true));
    EXPECT_FALSE(std::filesystem::exists(path));
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(platform.Messages()[0].Text.find("The value 2 of Duty Adj (# i 2) does not fit its "
                                               "field, which holds 0 to 1."),
              std::string::npos)
        << platform.Messages()[0].Text;
    EXPECT_EQ(Hint(), "");
}

TEST_F(EntryFile3350Test, AnOutputThatIsOffHasNoVector) {
    // "Off" has no fuse code for the clock source: the image is made with a report, and a vector
    // of it would program the PLL at its full frequency.
    frmQX3350& form = Configure("QX3350_SC");
    testing::QX3350Document::Pick(form.cboClockDivisors, "Off");
    form.cmdCalculate_Click();
    platform.ClearMessages();
    cls.MakeEntryFile();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_NE(LastDescription().find("No CLK-OUT selected."), std::string::npos);
    const std::string path = test::WriteBytes(dir, "old.jed", "old");
    EXPECT_FALSE(cls.MakeEPROMVector(path, true));
    ASSERT_EQ(platform.Messages().size(), 2u);
    EXPECT_EQ(LastDescription(), "No EPROM vector was written to '" + path +
                                     "': the configuration's entry image was made with errors.");
    EXPECT_EQ(test::ReadFile(path), "old");
}

TEST_P(EntryFile3350GoldenTest, VectorFromTheSavedFileMatchesGolden) {
    Configure(GetParam());
    cls.MakeEntryFile();
    const std::string saved = dir + "/saved file.ent";
    cls.WriteEntryFile(saved);
    // The image then changes; the vector must come from the file.
    cls.Entry().set_i(14, 999);
    app.Summary().txtFilename.SetText("saved file.ent");
    app.Main().mnuFilePathArray[1].SetCaption("&1 " + saved);
    const std::string path = dir + "/out.jed";
    cls.MakeEPROMVector(path, false);
    EXPECT_EQ(test::ReadFile(path), Golden(GetParam() + ".jed"));
}

TEST_P(EntryFile3350GoldenTest, FamilyChecksumMatchesTheIndependentComputation) {
    std::ifstream sums(test::DataPath("entry/QX3350_checksums.txt"));
    std::map<std::string, int> expected;
    std::string name;
    int sum = 0;
    while (sums >> name >> sum) expected[name] = sum;
    ASSERT_EQ(expected.count(GetParam()), 1u);
    frmQX3350& form = Configure(GetParam());
    EXPECT_EQ(cls.Checksum(), expected[GetParam()]);
    // The window's own checksum is the same number, as text.
    EXPECT_EQ(form.Checksum(), std::to_string(expected[GetParam()]));
}

TEST_P(EntryFile3350GoldenTest, OpeningTheGoldenFillsTheWindowAsItWasSet) {
    const Case3350& c = Cases3350().at(GetParam());
    clsEntryFile read(errors);
    const std::string path = test::DataPath("entry/" + GetParam() + "_details.ent");
    ASSERT_TRUE(mFileAccessor::ReadFile(path, read));
    platform.QueueAnswer(msgbox::OK);
    ASSERT_TRUE(mFileAccessor::FillForm(app, read, path));
    frmQX3350& form = Form();
    EXPECT_EQ(form.lblDevice.Caption(), c.device);
    EXPECT_EQ(form.opt5V.Value(), c.volt5);
    EXPECT_EQ(form.optSOIC.Value(), c.soic);
    EXPECT_EQ(form.optTSSOP.Value(), !c.soic);
    EXPECT_EQ(form.optCrystal.Value(), c.crystal);
    EXPECT_NEAR(Val(form.cboFRef.Text()), Val(c.reference), 1e-9);
    EXPECT_EQ(form.cboClockDivisors.Text(), c.divisor);
    EXPECT_EQ(form.optTTL.Value(), c.ttl);
    EXPECT_EQ(form.optOutputEnable.Value(), c.oe);
    EXPECT_EQ(form.chkSynchronous.Value(), c.sync ? 1 : 0);
    if (c.pll.empty()) {
        EXPECT_EQ(form.txtPLL.Text(), "Off");
    } else {
        EXPECT_NEAR(Val(form.txtPLL.Text()), Val(c.pll), 1e-9);
        EXPECT_EQ(form.txtPLL.Tag(), form.txtPLL.Text());
    }
    // Calculated on opening, with the note about the PPM values.
    EXPECT_EQ(form.cmdCalculate.BackColor(), colors::Grey);
    EXPECT_FALSE(app.gblnNeedsCalculate);
    ASSERT_FALSE(platform.Messages().empty());
    EXPECT_NE(platform.Messages().back().Text.find("PPM values are optimized upon loading"),
              std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Cases, EntryFile3350GoldenTest,
                         ::testing::Values("QX3350_SC", "QX3350_TZ", "QX3350I_SC", "QX3350I_TZ",
                                           "QX3350_P2750"));

// ---------------------------------------------------------------- round trip

TEST_F(EntryFile3350Test, SaveOpenSaveGivesTheSameBytesAndChecksum) {
    for (const auto& [name, c] : Cases3350()) {
        Configure(name);
        const std::string first = dir + "/" + name + "-1.ent";
        const std::string second = dir + "/" + name + "-2.ent";
        Form().MakeEntryFile(first);
        const std::string checksum = Form().Checksum();
        const std::vector<std::string> options = {
            "opt5V",          "opt3V",   "optSOIC", "optTSSOP",        "optCrystal",
            "optExternal",    "optTTL",  "optCMOS", "optPowerDown",    "optOutputEnable",
            "chkSynchronous", "cboFRef", "txtPLL",  "cboClockDivisors"};
        auto state = [&](const std::string& field) {
            const Field& f = *Form().Fields().Find(field);
            const auto* option = Form().Fields().FindAs<OptionButton>(field);
            return mShared::FieldText(f) + "|" + (option != nullptr && option->Value() ? "1" : "0");
        };
        std::map<std::string, std::string> before;
        for (const auto& field : options) before[field] = state(field);
        clsEntryFile read(errors);
        ASSERT_TRUE(mFileAccessor::ReadFile(first, read));
        platform.QueueAnswer(msgbox::OK);
        ASSERT_TRUE(mFileAccessor::FillForm(app, read, first));
        for (const auto& field : options)
            EXPECT_EQ(state(field), before[field]) << name << " " << field;
        // The search runs anew on opening; put the chosen solution back as the user had it.
        FillList(Form().cboPLLData, c.data, c.index);
        FillList(Form().cboActual, c.actual, c.index);
        Form().MakeEntryFile(second);
        EXPECT_EQ(test::ReadFile(second), test::ReadFile(first)) << name;
        EXPECT_EQ(Form().Checksum(), checksum) << name;
    }
}

// ---------------------------------------------------------------- fields and their edges

TEST_F(EntryFile3350Test, ChargePumpFieldsFollowP) {
    Configure("QX3350_SC");
    struct Edge {
        int p;
        int rlow;
        int ilow;
    };
    for (const Edge& edge : {Edge{2750, 1, 1}, Edge{2749, 0, 1}, Edge{1499, 1, 0}, Edge{624, 0, 0},
                             Edge{625, 1, 0}, Edge{1500, 0, 1}}) {
        FillList(Form().cboPLLData, {"100.000000 P:" + std::to_string(edge.p) + " Q:40"}, 0);
        cls.MakeEntryFile();
        EXPECT_EQ(cls.Entry().i(14), edge.p);
        EXPECT_EQ(cls.Entry().i(15), 40);
        EXPECT_EQ(cls.Entry().i(11), edge.rlow) << edge.p;
        EXPECT_EQ(cls.Entry().i(12), edge.ilow) << edge.p;
        std::int16_t bit = -1;
        cls.GetConfigurationEPROMBit(11, bit);
        EXPECT_EQ(bit, edge.rlow);
        cls.GetConfigurationEPROMBit(12, bit);
        EXPECT_EQ(bit, edge.ilow);
    }
}

TEST_F(EntryFile3350Test, FieldsOfTheOptions) {
    Configure("QX3350_SC");
    frmQX3350& form = Form();
    auto field = [&](int n) {
        cls.MakeEntryFile();
        return cls.Entry().i(n);
    };
    EXPECT_EQ(field(0), 127);
    form.optExternal.SetValue(true);
    EXPECT_EQ(field(0), 0);
    EXPECT_EQ(field(1), 0);
    EXPECT_EQ(field(3), 0);
    EXPECT_EQ(field(4), 1);
    EXPECT_EQ(field(8), 0);
    EXPECT_EQ(field(13), 1);
    EXPECT_EQ(field(5), 0);
    form.optOutputEnable.SetValue(true);
    EXPECT_EQ(field(5), 1);
    EXPECT_EQ(field(6), 0);
    form.chkSynchronous.SetValue(1);
    EXPECT_EQ(field(6), 1);
    EXPECT_EQ(field(7), 0);
    EXPECT_EQ(field(2), 0);
    form.optCMOS.SetValue(true);
    EXPECT_EQ(field(7), 1);
    EXPECT_EQ(field(2), 1);
    // Each post divide has its code.
    const char* sources[] = {"PLL",    "PLL/2",  "PLL/4",  "PLL/8",
                             "PLL/16", "PLL/32", "PLL/64", "PLL/128"};
    for (int k = 0; k < 8; ++k) {
        Pick(form.cboClockDivisors, sources[k]);
        EXPECT_EQ(field(10), k) << sources[k];
        EXPECT_EQ(field(9), 1);
        Pick(form.cboClockDivisors, std::string("Ref") + (k == 0 ? "" : sources[k] + 3));
        EXPECT_EQ(field(10), k);
        EXPECT_EQ(field(9), 0);
    }
    EXPECT_TRUE(platform.Messages().empty()) << LastDescription();
}

TEST_F(EntryFile3350Test, ImageOfTheFrequenciesAndThePartDescription) {
    Configure("QX3350_TZ");
    cls.MakeEntryFile();
    const clsEntryFile& e = cls.Entry();
    EXPECT_EQ(e.mintDCount, 1);
    EXPECT_EQ(e.mintFCount, 3);
    EXPECT_EQ(e.mintICount, 16);
    EXPECT_EQ(e.mstrPartDescription, "qx3350zl-B2");
    EXPECT_EQ(e.mstrPartDescription.find('-'), 8u);
    EXPECT_EQ(e.mstrVersion, "B2");
    EXPECT_EQ(e.mstrRValue, "");
    EXPECT_EQ(e.d(0), 0);
    EXPECT_DOUBLE_EQ(e.f(0), 25);
    EXPECT_DOUBLE_EQ(e.f(1), 160);
    EXPECT_DOUBLE_EQ(e.f(2), 20);
}

TEST_F(EntryFile3350Test, NoSelectedClockOutGivesTheMessageAndField9IsOne) {
    Configure("QX3350_TZ");
    Form().cboClockDivisors.SetListIndex(-1);
    platform.ClearMessages();
    cls.MakeEntryFile();
    EXPECT_EQ(cls.Entry().i(9), 1);
    ASSERT_FALSE(platform.Messages().empty());
    EXPECT_EQ(Numbers().front(), 10704);
    EXPECT_EQ(Description(0), "No CLK-OUT selected.");
}

TEST_F(EntryFile3350Test, AnOffOutputAlsoHasNoClockOut) {
    Configure("QX3350_TZ");
    Pick(Form().cboClockDivisors, "Off");
    platform.ClearMessages();
    cls.MakeEntryFile();
    EXPECT_EQ(cls.Entry().i(9), 1);
    EXPECT_EQ(Description(0), "No CLK-OUT selected.");
}

TEST_F(EntryFile3350Test, AnUnknownPostDivideIsReported) {
    Configure("QX3350_TZ");
    Form().cboClockDivisors.AddItem("PLL/3");
    Pick(Form().cboClockDivisors, "PLL/3");
    platform.ClearMessages();
    cls.MakeEntryFile();
    ASSERT_EQ(platform.Messages().size(), 1u);
    EXPECT_EQ(Description(0), "No such post divide: '3'.");
}

TEST_F(EntryFile3350Test, BitFieldAbove13IsRefused) {
    Configure("QX3350_TZ");
    std::int16_t bit = 5;
    cls.GetConfigurationEPROMBit(14, bit);
    EXPECT_EQ(bit, 0);
    EXPECT_EQ(Description(0), "Invalid parameter intBitField: '14'.");
}

TEST_F(EntryFile3350Test, WithoutDetailsOnlyTheDLineKeepsItsComment) {
    const std::string text = EntryText("QX3350_SC", false);
    std::istringstream lines(text);
    std::string line;
    int commented = 0;
    while (std::getline(lines, line)) {
        if (line.rfind("# ", 0) != 0 || line.size() < 4 || line[2] == 's' || line[2] == 'r')
            continue;
        const std::string behind = line.substr(line.find(';') + 1);
        // Behind ";" stands only the index, unless it is the "# d" line.
        if (behind.find_first_not_of("0123456789\r") != std::string::npos) {
            ++commented;
            EXPECT_EQ(line.substr(0, 3), "# d") << line;
            EXPECT_EQ(behind, "0  0 for 3.3v, 1 for 5v\r");
        }
    }
    EXPECT_EQ(commented, 1);
    // The reference's comment and the line end it carries are gone: behind the two empty lines
    // that open the family's part, no two empty lines stand together.
    const size_t part = text.find("\r\n\r\n\r\n# s ");
    ASSERT_NE(part, std::string::npos);
    EXPECT_EQ(text.find("\r\n\r\n\r\n", part + 1), std::string::npos);
}

TEST_F(EntryFile3350Test, AVectorIsOneRowOf45FusesAndTheChecksumCountsThemPaddedTo48) {
    Configure("QX3350_TZ");
    cls.MakeEntryFile();
    const std::string text =
        clsEntryFile3350::EPROMVectorText(cls.Entry(), app.gstrTitle, app.gstrBuild);
    std::vector<std::string> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) rows.push_back(line);
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_EQ(rows[3], "*\r");
    EXPECT_EQ(rows[4], "QP0008* QF0045* G0 *\r");
    EXPECT_EQ(rows[5], "L0000\r");
    EXPECT_EQ(rows[6].size(), 47u);
    EXPECT_EQ(rows[6].substr(45), "*\r");
    const std::string fuses = rows[6].substr(0, 45);
    EXPECT_EQ(fuses, clsEntryFile3350::FuseMap(cls.Entry()));
    EXPECT_EQ(rows[7], "C" + mShared::CalculateJEDECChecksum(fuses + "000") + "*\r");
    // P and Q less 5 and 2 at the end, before a final 0.
    EXPECT_EQ(fuses.substr(22, 12), "001011111011");  // 768 - 5 = 763
    EXPECT_EQ(fuses.substr(34, 10), "0011101110");    // 240 - 2 = 238
    EXPECT_EQ(fuses.back(), '0');
    // ILow stands before RLow.
    EXPECT_EQ(fuses.substr(19, 3), "011");
}

// ---------------------------------------------------------------- filling the window

class Fill3350Test : public EntryFile3350Test {
  protected:
    // An image as a file of the case would give it.
    clsEntryFile Read(const std::string& name) {
        clsEntryFile read(errors);
        EXPECT_TRUE(mFileAccessor::ReadFile(test::DataPath("entry/" + name + "_lean.ent"), read));
        return read;
    }
};

TEST_F(Fill3350Test, ADashAtPlaceEightGivesTheFormatMessageAndKeepsThePackage) {
    for (bool soic : {true, false}) {
        frmQX3350& form = Open("QX3350");
        (soic ? form.optSOIC : form.optTSSOP).SetValue(true);
        cls.SetForm(form);
        clsEntryFile read = Read("QX3350_TZ");
        read.mstrPartDescription = "qx3350z-01";
        platform.ClearMessages();
        cls.Fill3350Form(read);
        ASSERT_FALSE(platform.Messages().empty());
        EXPECT_EQ(Description(0), "The format of the package type in the entry file is invalid.");
        EXPECT_EQ(form.optSOIC.Value(), soic);
        EXPECT_EQ(form.optTSSOP.Value(), !soic);
        // The rest of the file is read.
        EXPECT_TRUE(form.opt3V.Value());
        EXPECT_EQ(form.cboClockDivisors.Text(), "PLL/8");
    }
}

TEST_F(Fill3350Test, AnUnknownPackageLetterIsReported) {
    frmQX3350& form = Open("QX3350");
    cls.SetForm(form);
    clsEntryFile read = Read("QX3350_TZ");
    read.mstrPartDescription = "qx3350xl-01";
    platform.ClearMessages();
    cls.Fill3350Form(read);
    EXPECT_EQ(Description(0),
              "The SOIC/TSSOP identifier in the package type of the entry file is invalid.");
    EXPECT_TRUE(form.optSOIC.Value());
}

TEST_F(Fill3350Test, AReferenceOutsideTheListIsAddedToIt) {
    frmQX3350& form = Open("QX3350");
    cls.SetForm(form);
    clsEntryFile read = Read("QX3350_SC");
    read.set_f(0, 13.5);
    const int before = form.cboFRef.ListCount();
    cls.Fill3350Form(read);
    EXPECT_EQ(form.cboFRef.ListCount(), before + 1);
    EXPECT_EQ(form.cboFRef.Text(), "13.50000 MHz");
    EXPECT_TRUE(platform.Messages().empty()) << LastDescription();
}

TEST_F(Fill3350Test, ARefSourceFileKeepsItsPLLTextForTheWayBack) {
    frmQX3350& form = Open("QX3350");
    cls.SetForm(form);
    clsEntryFile read = Read("QX3350_TZ");
    read.set_i(9, 0);
    cls.Fill3350Form(read);
    EXPECT_EQ(form.cboClockDivisors.Text(), "Ref/8");
    EXPECT_EQ(form.txtPLL.Text(), "Off");
    EXPECT_FALSE(form.txtPLL.Enabled());
    Pick(form.cboClockDivisors, "PLL");
    EXPECT_EQ(form.txtPLL.Text(), "160.0");
}

// A QX3350 window whose device name the test can change after it was handed over.
class RenamedForm : public EntryForm3350 {
  public:
    RenamedForm(frmQX3350& form, std::string& device) : form_(form), device_(device) {}
    std::string Device() const override { return device_; }
    bool PreScale(int) const override { return false; }
    void SetPreScale(int, bool) override {}
    void cmdApplyLimits_Click() override { form_.cmdApplyLimits_Click(); }
    void cboFRef_LostFocus() override { form_.cboFRef_LostFocus(); }
    void cboClockDivisors_Click() override { form_.cboClockDivisors_Click(); }
    void txtPLL_Change() override { form_.txtPLL_Change(); }
    Window& Fields() override { return form_; }

  private:
    frmQX3350& form_;
    std::string& device_;
};

TEST_F(Fill3350Test, OnlyTheTwoDevicesAreServed) {
    frmQX3350& form = Open("QX3350");
    std::string device = "QX4860";
    clsEntryFile3350 other(app);
    other.SetForm(std::make_unique<RenamedForm>(form, device));
    EXPECT_EQ(other.Form(), nullptr);
    device = "QX3350I";
    other.SetForm(std::make_unique<RenamedForm>(form, device));
    ASSERT_NE(other.Form(), nullptr);
    device = "QX7311";
    form.optTSSOP.SetValue(true);
    other.Fill3350Form(Read("QX3350_SC"));
    EXPECT_EQ(Description(0), "Invalid calling device: QX7311");
    EXPECT_TRUE(form.optTSSOP.Value());
}

TEST_F(Fill3350Test, AFileOfTheSummaryShowsItsPartDescriptionAndNoChecksum) {
    clsEntryFile read = Read("QX3350_SC");
    EXPECT_EQ(mFileAccessor::SummaryDevice(read.mstrPartDescription), "qx3350sc-01");
    EXPECT_EQ(mShared::CalculateChecksum(read, "qx3350sc-01"), "n/a");
}

}  // namespace
}  // namespace pendulon
