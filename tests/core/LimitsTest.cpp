#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "CoreTestSupport.hpp"
#include "core/LimitForm.hpp"
#include "core/cls3350Die.hpp"
#include "core/cls4860Die.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsQX3350.hpp"
#include "core/clsQX4860.hpp"
#include "core/clsQX7311.hpp"
#include "core/clsReference.hpp"
#include "platform/Label.hpp"

namespace pendulon {
namespace {

using Strings = std::vector<std::string>;

// A window with the user-limits fields of a configurator, for `count` limit elements.
class TestLimitForm : public LimitForm {
  public:
    explicit TestLimitForm(const std::string& device, size_t count = 9) : LimitForm("frmTest") {
        lblDevice.SetCaption(device);
        Register("lblDevice", lblDevice);
        Register("txtFRefMin", txtFRefMin);
        Register("txtFRefMax", txtFRefMax);
        for (size_t i = 0; i < count; ++i) {
            Register("txtPLLMin(" + std::to_string(i) + ")", txtPLLMin[i]);
            Register("txtPLLMax(" + std::to_string(i) + ")", txtPLLMax[i]);
        }
    }
    Strings Minima(size_t count) const {
        Strings out;
        for (size_t i = 0; i < count; ++i) out.push_back(txtPLLMin[i].Text());
        return out;
    }
    Strings Maxima(size_t count) const {
        Strings out;
        for (size_t i = 0; i < count; ++i) out.push_back(txtPLLMax[i].Text());
        return out;
    }
    Label lblDevice;
    TextField txtFRefMin, txtFRefMax;
    std::array<TextField, 9> txtPLLMin, txtPLLMax;
};

// ---- clsReference

TEST(clsReference, FreshObjectHasDefaultRange) {
    test::ReportFixture f;
    clsReference reference(f.errors);
    EXPECT_EQ(reference.Minimum(), 1);
    EXPECT_EQ(reference.Maximum(), 30);
}

TEST(clsReference, CurrentAndDefaultLimitsGoIntoTextFields) {
    test::ReportFixture f;
    clsReference reference(f.errors);
    reference.SetNewLimits(2.5, 20);
    TextField minimum, maximum;
    reference.GetCurrentLimits(minimum, maximum);
    EXPECT_EQ(minimum.Text(), "2.5");
    EXPECT_EQ(maximum.Text(), "20");
    reference.GetDefaultLimits(minimum, maximum);
    EXPECT_EQ(minimum.Text(), "1");
    EXPECT_EQ(maximum.Text(), "30");
    // The stored limits are untouched by the defaults.
    EXPECT_EQ(reference.Minimum(), 2.5);
    EXPECT_EQ(reference.Maximum(), 20);
    reference.SetDefaultLimits();
    EXPECT_EQ(reference.Minimum(), 1);
    EXPECT_EQ(reference.Maximum(), 30);
    reference.SetMinimum(3);
    reference.SetMaximum(4);
    EXPECT_EQ(reference.Minimum(), 3);
    EXPECT_EQ(reference.Maximum(), 4);
}

TEST(clsReference, ReferenceListInProductOrderWith14MHzSelected) {
    test::ReportFixture f;
    clsReference reference(f.errors);
    ListField list;
    list.AddItem("stale");
    int clicks = 0;
    list.OnClick = [&] { ++clicks; };
    reference.InitializeReferenceComboBox(list);
    EXPECT_EQ(list.Items(), (Strings{"11.05920 MHz", "12.00000 MHz", "12.28800 MHz", "14.31818 MHz",
                                     "14.74560 MHz", "16.00000 MHz", "18.43200 MHz", "16.93440 MHz",
                                     "17.73448 MHz", "19.66080 MHz", "20.00000 MHz", "22.11840 MHz",
                                     "24.57600 MHz", "25.00000 MHz"}));
    EXPECT_EQ(list.ListIndex(), 3);
    EXPECT_EQ(list.Text(), "14.31818 MHz");
    EXPECT_EQ(clicks, 1);
}

// ---- cls4860Die

struct Die4860 : ::testing::Test {
    test::ReportFixture f;
    cls4860Die die{f.errors};
    void SetUp() override { die.SetDefaultLimits({4, 4}, {150, 200}); }
};

TEST_F(Die4860, DefaultsAfterSetDefaultLimits) {
    EXPECT_EQ(die.mdblVoltage, 5.0);
    EXPECT_EQ(die.MinimumPLLVoltage(), 4);
    EXPECT_EQ(die.MaximumPLLVoltage(), 200);
    EXPECT_EQ(die.MinimumP(), 5);
    EXPECT_EQ(die.MaximumP(), 256);
    EXPECT_EQ(die.MinimumQ(), 2);
    EXPECT_EQ(die.MaximumQ(), 128);
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumPLLVoltage(), 150);
    EXPECT_EQ(die.MaximumP(), 256);
}

TEST_F(Die4860, AnyVoltageOtherThan3Point3TakesFiveVoltFields) {
    die.mdblVoltage = 3.0;
    EXPECT_EQ(die.MaximumPLLVoltage(), 200);
    die.mdblVoltage = 5.0;
    EXPECT_EQ(die.MaximumPLLVoltage(), 200);
}

TEST_F(Die4860, EachVoltageKeepsItsOwnUserLimits) {
    die.mdblVoltage = 3.3;
    die.SetNewLimits({6, 7, 3}, {140, 200, 100});
    EXPECT_EQ(die.MinimumPLLVoltage(), 6);
    EXPECT_EQ(die.MinimumP(), 7);
    EXPECT_EQ(die.MinimumQ(), 3);
    EXPECT_EQ(die.MaximumPLLVoltage(), 140);
    EXPECT_EQ(die.MaximumP(), 200);
    EXPECT_EQ(die.MaximumQ(), 100);
    die.mdblVoltage = 5.0;
    EXPECT_EQ(die.MinimumPLLVoltage(), 4);
    EXPECT_EQ(die.MaximumPLLVoltage(), 200);
    EXPECT_EQ(die.MaximumP(), 256);
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumPLLVoltage(), 140);
}

TEST_F(Die4860, CurrentAndDefaultLimitArrays) {
    die.SetNewLimits({10, 6, 3}, {180, 250, 120});
    std::vector<double> minimum(3), maximum(3);
    die.GetCurrentLimits(minimum, maximum);
    EXPECT_EQ(minimum, (std::vector<double>{10, 6, 3}));
    EXPECT_EQ(maximum, (std::vector<double>{180, 250, 120}));
    die.GetDefaultLimits(minimum, maximum);
    EXPECT_EQ(minimum, (std::vector<double>{4, 5, 2}));
    EXPECT_EQ(maximum, (std::vector<double>{200, 256, 128}));
    die.mdblVoltage = 3.3;
    die.GetDefaultLimits(minimum, maximum);
    EXPECT_EQ(maximum, (std::vector<double>{150, 256, 128}));
}

TEST_F(Die4860, SetDefaultLimitsRestoresBothVoltages) {
    die.SetNewLimits({10, 6, 3}, {180, 250, 120});
    die.SetDefaultLimits({4, 4}, {120, 160});
    EXPECT_EQ(die.MaximumPLLVoltage(), 160);
    EXPECT_EQ(die.MaximumQ(), 128);
    EXPECT_EQ(die.mdblDefaultPLLMaximum3V, 120);
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumPLLVoltage(), 120);
}

TEST_F(Die4860, ShortArrayIsReportedAndTheRestStored) {
    die.SetNewLimits({10, 6}, {180, 250, 120});
    EXPECT_EQ(f.errors.Count(), 1);
    EXPECT_EQ(f.errors.LastNumber(), 9);
    EXPECT_EQ(f.Source(0), "cls4860Die.SetNewLimits");
    EXPECT_EQ(die.MinimumQ(), 2);
    EXPECT_EQ(die.MinimumP(), 6);
    EXPECT_EQ(die.MaximumQ(), 120);
}

// ---- cls3350Die

TEST(cls3350Die, SetsItsOwnDefaultsAtConstruction) {
    test::ReportFixture f;
    cls3350Die die(f.errors);
    EXPECT_EQ(die.mdblVoltage, 5.0);
    EXPECT_EQ(die.MinimumPLLVoltage(), 50);
    EXPECT_EQ(die.MaximumPLLVoltage(), 250);
    EXPECT_EQ(die.MinimumP(), 24);
    EXPECT_EQ(die.MaximumP(), 4100);
    EXPECT_EQ(die.MinimumQ(), 2);
    EXPECT_EQ(die.MaximumQ(), 1025);
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MinimumPLLVoltage(), 50);
    EXPECT_EQ(die.MaximumPLLVoltage(), 180);
}

TEST(cls3350Die, UserLimitsPerVoltageAndDefaultsBack) {
    test::ReportFixture f;
    cls3350Die die(f.errors);
    die.SetNewLimits({60, 30, 3}, {240, 4000, 1000});
    EXPECT_EQ(die.MaximumP(), 4000);
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumP(), 4100);
    std::vector<double> minimum(3), maximum(3);
    die.GetDefaultLimits(minimum, maximum);
    EXPECT_EQ(minimum, (std::vector<double>{50, 24, 2}));
    EXPECT_EQ(maximum, (std::vector<double>{180, 4100, 1025}));
    die.mdblVoltage = 5.0;
    die.GetCurrentLimits(minimum, maximum);
    EXPECT_EQ(maximum, (std::vector<double>{240, 4000, 1000}));
    die.SetDefaultLimits();
    EXPECT_EQ(die.MaximumP(), 4100);
    EXPECT_EQ(die.MaximumPLLVoltage(), 250);
}

// ---- cls7311Die

TEST(cls7311Die, BuiltAtFiveVoltsWithCounterDefaults) {
    test::ReportFixture f;
    cls7311Die die(f.errors);
    EXPECT_EQ(die.mdblVoltage, 5.0);
    EXPECT_EQ(die.mdblCPLLMaxP5V, 258);
    EXPECT_EQ(die.mdblUPLLMaxP3V, 1026);
    EXPECT_EQ(die.mdblUPLLMaxQ5V, 129);
    EXPECT_EQ(die.mdblSPLLMaxQ3V, 65);
    EXPECT_EQ(die.mdblSPLLMinP5V, 5);
    EXPECT_EQ(die.mdblCPLLMinQ3V, 2);
    // The VCO defaults are not set yet.
    EXPECT_EQ(die.MaximumCPLLVoltage(), 0);
}

TEST(cls7311Die, DefaultVCOGoesToAllThreeLoops) {
    test::ReportFixture f;
    cls7311Die die(f.errors);
    die.mdblDefaultPLLMinimum3V = 8;
    die.mdblDefaultPLLMaximum3V = 66.66667;
    die.mdblDefaultPLLMinimum5V = 8;
    die.mdblDefaultPLLMaximum5V = 90;
    die.SetDefaultLimits();
    EXPECT_EQ(die.MaximumCPLLVoltage(), 90);
    EXPECT_EQ(die.MaximumUPLLVoltage(), 90);
    EXPECT_EQ(die.MaximumSPLLVoltage(), 90);
    EXPECT_EQ(die.MinimumCPLLVoltage(), 8);
    EXPECT_EQ(die.MinimumUPLLVoltage(), 8);
    EXPECT_EQ(die.MinimumSPLLVoltage(), 8);
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumUPLLVoltage(), 66.66667);
    std::vector<double> minimum(9), maximum(9);
    die.GetDefaultLimits(minimum, maximum);
    EXPECT_EQ(minimum, (std::vector<double>{8, 5, 2, 8, 5, 2, 8, 5, 2}));
    EXPECT_EQ(maximum,
              (std::vector<double>{66.66667, 258, 65, 66.66667, 1026, 129, 66.66667, 258, 65}));
}

TEST(cls7311Die, NewLimitsGoToThePresentVoltageByLoop) {
    test::ReportFixture f;
    cls7311Die die(f.errors);
    die.mdblDefaultPLLMinimum3V = 8;
    die.mdblDefaultPLLMaximum3V = 80;
    die.mdblDefaultPLLMinimum5V = 8;
    die.mdblDefaultPLLMaximum5V = 100;
    die.SetDefaultLimits();
    die.SetNewLimits({10, 6, 3, 11, 7, 4, 12, 8, 5}, {95, 250, 60, 96, 1000, 120, 97, 240, 50});
    EXPECT_EQ(die.MinimumCPLLVoltage(), 10);
    EXPECT_EQ(die.MinimumUPLLVoltage(), 11);
    EXPECT_EQ(die.MinimumSPLLVoltage(), 12);
    EXPECT_EQ(die.MaximumCPLLVoltage(), 95);
    EXPECT_EQ(die.MaximumUPLLVoltage(), 96);
    EXPECT_EQ(die.MaximumSPLLVoltage(), 97);
    EXPECT_EQ(die.mdblUPLLMaxP5V, 1000);
    EXPECT_EQ(die.mdblSPLLMinQ5V, 5);
    EXPECT_EQ(die.mdblCPLLMaxQ5V, 60);
    std::vector<double> minimum(9), maximum(9);
    die.GetCurrentLimits(minimum, maximum);
    EXPECT_EQ(minimum, (std::vector<double>{10, 6, 3, 11, 7, 4, 12, 8, 5}));
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumUPLLVoltage(), 80);
    EXPECT_EQ(die.mdblUPLLMaxP3V, 1026);
}

// ---- clsQX4860

TEST(clsQX4860, MaximumQKeepsComparisonFrequencyAtLeast150kHz) {
    test::ReportFixture f;
    clsQX4860 device(f.errors);
    EXPECT_EQ(device.GetMaximumQ(14.31818, 128), 95);
    EXPECT_EQ(device.GetMaximumQ(25, 128), 128);
    // 19.2 / 0.15 = 128: at least the default gives the default.
    EXPECT_EQ(device.GetMaximumQ(19.2, 128), 128);
}

TEST(clsQX4860, SmoothSlewInTheSixtySixBandUsesThreePointSevenFiveTimesReference) {
    test::ReportFixture f;
    clsQX4860 device(f.errors);
    TestLimitForm form("QX4860", 3);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 66.5, 14.31818, 128, 2), 54);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 66.1, 14.31818, 128, 2), 54);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 66.9, 14.31818, 128, 2), 54);
    // Outside the band: 300 x reference / frequency.
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 66.09, 14.31818, 128, 2), 65);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 100, 14.31818, 128, 3), 43);
    // Never above the default.
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 100, 14.31818, 40, 3), 40);
}

TEST(clsQX4860, SmoothSlewHasNoEffectForQX6105AZeroFrequencyOrFewDivisors) {
    test::ReportFixture f;
    clsQX4860 device(f.errors);
    TestLimitForm qx6105("QX6105AF", 3);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(qx6105, 66.5, 14.31818, 128, 2), 128);
    TestLimitForm form("QX4860", 3);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 0, 14.31818, 128, 2), 128);
    EXPECT_EQ(device.GetMaximumQWithSmoothSlew(form, 66.5, 14.31818, 128, 1), 128);
    EXPECT_EQ(f.errors.Count(), 0);
}

TEST(clsQX4860, ClockDivisorList) {
    test::ReportFixture f;
    clsQX4860 device(f.errors);
    ListField list;
    list.AddItem("stale");
    device.InitializeClockDivisors(list);
    EXPECT_EQ(list.Items(),
              (Strings{"Ref", "Ref/2", "PLL", "PLL/2", "PLL/3", "PLL/4", "PLL/5", "PLL/8", "Off"}));
    EXPECT_EQ(list.ListIndex(), 0);
}

struct QX4860Limits : ::testing::Test {
    test::ReportFixture f;
    clsQX4860 device{f.errors};
    clsReference reference{f.errors};
    cls4860Die die{f.errors};
    TestLimitForm form{"QX4860", 3};
    void SetUp() override { die.SetDefaultLimits({4, 4}, {150, 200}); }
};

TEST_F(QX4860Limits, DefaultsShownWhenFlagOfVoltageIsSet) {
    die.SetNewLimits({10, 6, 3}, {180, 250, 120});
    reference.SetNewLimits(2, 25);
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.txtFRefMin.Text(), "1");
    EXPECT_EQ(form.txtFRefMax.Text(), "30");
    EXPECT_EQ(form.Minima(3), (Strings{"4.0", "5", "2"}));
    EXPECT_EQ(form.Maxima(3), (Strings{"200.0", "256", "128"}));
    EXPECT_EQ(f.errors.Count(), 0);
}

TEST_F(QX4860Limits, CurrentLimitsShownWhenFlagIsClear) {
    die.SetNewLimits({10.5, 6, 3}, {180, 250, 120});
    reference.SetNewLimits(2, 25);
    form.mblnUseDefaults5V = false;
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.txtFRefMin.Text(), "2");
    EXPECT_EQ(form.txtFRefMax.Text(), "25");
    EXPECT_EQ(form.Minima(3), (Strings{"10.5", "6", "3"}));
    EXPECT_EQ(form.Maxima(3), (Strings{"180.0", "250", "120"}));
}

TEST_F(QX4860Limits, FlagFollowsTheDieVoltage) {
    form.mblnUseDefaults3V = false;
    form.mblnUseDefaults5V = true;
    die.mdblVoltage = 3.3;
    die.SetNewLimits({7, 6, 3}, {140, 250, 120});
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.Maxima(3), (Strings{"140.0", "250", "120"}));
    die.mdblVoltage = 5.0;
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.Maxima(3), (Strings{"200.0", "256", "128"}));
}

TEST_F(QX4860Limits, NewLimitsReadByLeadingNumberRule) {
    form.txtFRefMin.SetText("2 MHz");
    form.txtFRefMax.SetText("25");
    form.txtPLLMin[0].SetText("10.5");
    form.txtPLLMin[1].SetText("6");
    form.txtPLLMin[2].SetText("3x");
    form.txtPLLMax[0].SetText("150.0");
    form.txtPLLMax[1].SetText("200");
    form.txtPLLMax[2].SetText("100");
    device.SetNewPLLLimits(form, reference, die);
    EXPECT_EQ(reference.Minimum(), 2);
    EXPECT_EQ(reference.Maximum(), 25);
    EXPECT_EQ(die.MinimumPLLVoltage(), 10.5);
    EXPECT_EQ(die.MinimumP(), 6);
    EXPECT_EQ(die.MinimumQ(), 3);
    EXPECT_EQ(die.MaximumPLLVoltage(), 150);
    EXPECT_EQ(die.MaximumP(), 200);
    EXPECT_EQ(die.MaximumQ(), 100);
    // The 3 V set stays intact.
    die.mdblVoltage = 3.3;
    EXPECT_EQ(die.MaximumPLLVoltage(), 150);
    EXPECT_EQ(die.MaximumP(), 256);
    EXPECT_EQ(die.MinimumPLLVoltage(), 4);
}

TEST_F(QX4860Limits, MissingFieldIsReportedAndTheRestIsDone) {
    TestLimitForm small("QX4860", 2);
    device.GetCurrentPLLLimits(small, reference, die);
    EXPECT_EQ(f.errors.Count(), 2);
    EXPECT_EQ(f.errors.LastNumber(), 340);
    EXPECT_EQ(f.Source(0), "clsQX4860.GetCurrentPLLLimits");
    EXPECT_EQ(small.Minima(2), (Strings{"4.0", "5"}));
}

// ---- clsQX7311

TEST(clsQX7311, MaximumQLikeQX4860) {
    test::ReportFixture f;
    clsQX7311 device(f.errors);
    EXPECT_EQ(device.GetMaximumQ(14.31818, 128), 95);
    EXPECT_EQ(device.GetMaximumQ(25, 128), 128);
    EXPECT_EQ(device.GetMaximumQ(14.31818, 65), 65);
}

TEST(clsQX7311, CPLLQMaxWithAllZeroFrequenciesIsTheMaximum) {
    test::ReportFixture f;
    clsQX7311 device(f.errors);
    EXPECT_EQ(device.GetCPLLQMax(50, 14.31818, 65, {0, 0, 0}), 65);
    EXPECT_EQ(device.GetCPLLQMax(50, 14.31818, 64.5, {0, 0}), 64);
    EXPECT_EQ(f.errors.Count(), 0);
}

TEST(clsQX7311, CPLLQMaxNarrowsWithDistance) {
    test::ReportFixture f;
    clsQX7311 device(f.errors);
    // D = 70 (100 against 30; 20 is nearer and a negative entry is ignored): 3927 / 70 = 56.1.
    EXPECT_EQ(device.GetCPLLQMax(30, 14.31818, 65, {100, -500, 20}), 56);
    // D below 60 x reference / 14.31818 leaves the maximum.
    EXPECT_EQ(device.GetCPLLQMax(50, 14.31818, 65, {100}), 65);
    // Above the maximum: the maximum. D = 65: 3927 / 65 = 60.4 rounds to 60.
    EXPECT_EQ(device.GetCPLLQMax(30, 14.31818, 50, {95}), 50);
    EXPECT_EQ(device.GetCPLLQMax(30, 14.31818, 65, {95}), 60);
    // Scales with the reference: twice the reference doubles the distances.
    EXPECT_EQ(device.GetCPLLQMax(60, 28.63636, 200, {200}), 56);
}

TEST(clsQX7311, CPLLQMaxIsAtLeast65BetweenFortyAndSixtyEight) {
    test::ReportFixture f;
    clsQX7311 device(f.errors);
    EXPECT_EQ(device.GetCPLLQMax(50, 14.31818, 65, {120}), 65);
    EXPECT_EQ(device.GetCPLLQMax(50, 14.31818, 60, {120}), 60);
    // Both band edges are inclusive.
    EXPECT_EQ(device.GetCPLLQMax(40, 14.31818, 65, {120}), 65);
    EXPECT_EQ(device.GetCPLLQMax(68, 14.31818, 65, {140}), 65);
    // Just below the band the narrowed value stays: D = 80.1, 3927 / 80.1 = 49.03.
    EXPECT_EQ(device.GetCPLLQMax(39.9, 14.31818, 65, {120}), 49);
}

TEST(clsQX7311, LimitFieldsOfAllThreeLoops) {
    test::ReportFixture f;
    clsQX7311 device(f.errors);
    clsReference reference(f.errors);
    cls7311Die die(f.errors);
    die.mdblDefaultPLLMinimum3V = 8;
    die.mdblDefaultPLLMaximum3V = 80;
    die.mdblDefaultPLLMinimum5V = 8;
    die.mdblDefaultPLLMaximum5V = 100;
    die.SetDefaultLimits();
    TestLimitForm form("QX7311");
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.Minima(9), (Strings{"8.0", "5", "2", "8.0", "5", "2", "8.0", "5", "2"}));
    EXPECT_EQ(form.Maxima(9),
              (Strings{"100.0", "258", "65", "100.0", "1026", "129", "100.0", "258", "65"}));
    form.txtPLLMax[3].SetText("90");
    form.txtPLLMax[4].SetText("1000");
    form.txtPLLMin[8].SetText("3");
    device.SetNewPLLLimits(form, reference, die);
    EXPECT_EQ(die.MaximumUPLLVoltage(), 90);
    EXPECT_EQ(die.mdblUPLLMaxP5V, 1000);
    EXPECT_EQ(die.mdblSPLLMinQ5V, 3);
    EXPECT_EQ(die.MaximumCPLLVoltage(), 100);
    form.mblnUseDefaults5V = false;
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.txtPLLMax[3].Text(), "90.0");
    EXPECT_EQ(form.txtPLLMax[4].Text(), "1000");
    EXPECT_EQ(f.errors.Count(), 0);
}

// ---- clsQX3350

TEST(clsQX3350, MaximaKeepComparisonFrequencyAtLeast32kHz) {
    test::ReportFixture f;
    clsQX3350 device(f.errors);
    // 14.31818 / 0.032 = 447.4
    EXPECT_EQ(device.GetMaximumQ(14.31818, 1025), 447);
    EXPECT_EQ(device.GetMaximumP(14.31818, 4100), 447);
    // 50 / 0.032 = 1562.5
    EXPECT_EQ(device.GetMaximumQ(50, 1025), 1025);
    EXPECT_EQ(device.GetMaximumP(50, 4100), 1562);
}

TEST(clsQX3350, MinimaRoundUpAndKeepTheLargerValue) {
    test::ReportFixture f;
    clsQX3350 device(f.errors);
    EXPECT_EQ(device.GetMinimumQ(2.5, 2), 4);  // 3.5 rounds half to even to 4
    EXPECT_EQ(device.GetMinimumQ(14.31818, 2), 15);
    EXPECT_EQ(device.GetMinimumP(14.31818, 24), 24);
    EXPECT_EQ(device.GetMinimumQ(3, 2), 3);
    EXPECT_EQ(device.GetMinimumQ(2.4, 2), 3);
    EXPECT_EQ(device.GetMinimumQ(3.5, 2), 4);  // rounded up already: D is negative
    EXPECT_EQ(device.GetMinimumQ(0.5, 2), 2);
    EXPECT_EQ(device.GetMinimumP(30.2, 24), 31);
}

TEST(clsQX3350, ClockDivisorList) {
    test::ReportFixture f;
    clsQX3350 device(f.errors);
    ListField list;
    device.InitializeClockDivisors(list);
    EXPECT_EQ(list.Items(), (Strings{"PLL", "PLL/2", "PLL/4", "PLL/8", "PLL/16", "PLL/32", "PLL/64",
                                     "PLL/128", "Ref", "Ref/2", "Ref/4", "Ref/8", "Ref/16",
                                     "Ref/32", "Ref/64", "Ref/128", "Off"}));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST(clsQX3350, LimitFieldsRoundTrip) {
    test::ReportFixture f;
    clsQX3350 device(f.errors);
    clsReference reference(f.errors);
    cls3350Die die(f.errors);
    TestLimitForm form("QX3350", 3);
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.Minima(3), (Strings{"50.0", "24", "2"}));
    EXPECT_EQ(form.Maxima(3), (Strings{"250.0", "4100", "1025"}));
    die.mdblVoltage = 3.3;
    device.GetCurrentPLLLimits(form, reference, die);
    EXPECT_EQ(form.Maxima(3), (Strings{"180.0", "4100", "1025"}));
    form.txtPLLMax[0].SetText("170");
    form.txtFRefMax.SetText("27");
    device.SetNewPLLLimits(form, reference, die);
    EXPECT_EQ(die.MaximumPLLVoltage(), 170);
    EXPECT_EQ(reference.Maximum(), 27);
    die.mdblVoltage = 5.0;
    EXPECT_EQ(die.MaximumPLLVoltage(), 250);
}

}  // namespace
}  // namespace pendulon
