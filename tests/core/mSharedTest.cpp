#include <gtest/gtest.h>

#include "CoreTestSupport.hpp"
#include "core/mShared.hpp"
#include "platform/CheckBox.hpp"
#include "platform/Label.hpp"
#include "platform/OptionButton.hpp"

namespace pendulon {
namespace {

using namespace mShared;

TEST(CalculatePPM, ZeroDesiredIsNoSolution) {
    EXPECT_EQ(CalculatePPM(1, 0), 5000000);
}
TEST(CalculatePPM, BeyondClampIsNoSolution) {
    EXPECT_EQ(CalculatePPM(7, 1), 5000000);
}
TEST(CalculatePPM, ExactlyAtClampEqualsNoSolution) {
    EXPECT_EQ(CalculatePPM(6, 1), 5000000);
}
TEST(CalculatePPM, SignIsPositiveAboveDesired) {
    EXPECT_EQ(CalculatePPM(1.5, 1), 500000);
    EXPECT_EQ(CalculatePPM(0.5, 1), -500000);
    EXPECT_EQ(CalculatePPM(100.001, 100), 10);
    EXPECT_EQ(CalculatePPM(2, 2), 0);
}
TEST(CalculatePPM, OverflowIsCaughtAsNoSolution) {
    EXPECT_EQ(CalculatePPM(1e300, 1e-300), 5000000);
    EXPECT_EQ(CalculatePPM(-1e300, 1e-300), 5000000);
}
TEST(CalculatePPM, NegativeClampBoundary) {
    // -1000000 is within the clamp.
    EXPECT_EQ(CalculatePPM(0, 1), -1000000);
}

TEST(ConvertBinaryToDecimal, ReadsDigitsLeftToRight) {
    test::ReportFixture f;
    EXPECT_EQ(ConvertBinaryToDecimal("1011", f.errors), 11);
    EXPECT_EQ(ConvertBinaryToDecimal("", f.errors), 0);
    EXPECT_EQ(ConvertBinaryToDecimal("00000001", f.errors), 1);
    EXPECT_EQ(f.errors.Count(), 0);
}
TEST(ConvertBinaryToDecimal, OtherDigitsAddTheirValue) {
    test::ReportFixture f;
    EXPECT_EQ(ConvertBinaryToDecimal("12", f.errors), 4);
    // A letter reads as 0.
    EXPECT_EQ(ConvertBinaryToDecimal("1a1", f.errors), 5);
}
TEST(ConvertBinaryToDecimal, OverflowGoesToErrorReportAndKeepsValue) {
    test::ReportFixture f;
    EXPECT_EQ(ConvertBinaryToDecimal(std::string(32, '1'), f.errors), 2147483647);
    ASSERT_EQ(f.errors.Count(), 1);
    EXPECT_EQ(f.errors.LastNumber(), 6);
    EXPECT_EQ(f.Source(0), "mShared.ConvertBinaryToDecimal");
}

TEST(ConvertDecimalToBinary, ZeroIsPaddedToWidth) {
    EXPECT_EQ(ConvertDecimalToBinary(0, 4), "0000");
}
TEST(ConvertDecimalToBinary, WiderValueIsNotCut) {
    EXPECT_EQ(ConvertDecimalToBinary(9, 2), "1001");
}
TEST(ConvertDecimalToBinary, PadsOnTheLeft) {
    EXPECT_EQ(ConvertDecimalToBinary(5, 8), "00000101");
    EXPECT_EQ(ConvertDecimalToBinary(6, 0), "110");
    EXPECT_EQ(ConvertDecimalToBinary(3, 2), "11");
    EXPECT_EQ(ConvertDecimalToBinary(-3, 3), "000");
}

TEST(DisplayBinary, ZeroAndOne) {
    EXPECT_EQ(DisplayBinary(0, 0), "0");
    EXPECT_EQ(DisplayBinary(1, 0), "1");
    EXPECT_EQ(DisplayBinary(1, 3), "001");
}
TEST(DisplayBinary, OtherValuesPaddedWithZeros) {
    EXPECT_EQ(DisplayBinary(6, 0), "110");
    EXPECT_EQ(DisplayBinary(5, 8), "00000101");
    EXPECT_EQ(DisplayBinary(2, 1), "10");
    EXPECT_EQ(DisplayBinary(255, 4), "11111111");
}

TEST(GetNonZeroDivisor, ReadsNumberBehindSlash) {
    EXPECT_EQ(GetNonZeroDivisor("/4"), 4);
    EXPECT_EQ(GetNonZeroDivisor("PLL/16"), 16);
    EXPECT_EQ(GetNonZeroDivisor("CPLL/ 3 "), 3);
}
TEST(GetNonZeroDivisor, NoDivisorOrZeroGivesOne) {
    EXPECT_EQ(GetNonZeroDivisor("/0"), 1);
    EXPECT_EQ(GetNonZeroDivisor("Off"), 1);
    EXPECT_EQ(GetNonZeroDivisor("Ref"), 1);
    EXPECT_EQ(GetNonZeroDivisor("PLL/"), 1);
}

TEST(Minimum, ReturnsSmallerOrSecondOnTie) {
    EXPECT_EQ(Minimum(1, 2), 1);
    EXPECT_EQ(Minimum(2, 1), 1);
    EXPECT_EQ(Minimum(-3, 3), -3);
}

TEST(StringToDouble, DependsOnFirstCharacterAndLengthOnly) {
    EXPECT_EQ(StringToDouble(""), 0);
    EXPECT_EQ(StringToDouble("A"), 65);
    EXPECT_EQ(StringToDouble("AB"), 195);
    EXPECT_EQ(StringToDouble("AB"), StringToDouble("AZ"));
    EXPECT_NE(StringToDouble("ABC"), StringToDouble("AB"));
    EXPECT_EQ(StringToDouble("ABC"), 455);
    EXPECT_NE(StringToDouble("BB"), StringToDouble("AB"));
}

TEST(FormatFrequencyFixed, NoPaddingGivesNumberAlone) {
    EXPECT_EQ(FormatFrequencyFixed(5), "5.00000");
    EXPECT_EQ(FormatFrequencyFixed(14.31818, -9999), "14.31818");
}
TEST(FormatFrequencyFixed, NegativePaddingAppendsBlanks) {
    EXPECT_EQ(FormatFrequencyFixed(5, -2), "5.00000    ");
    EXPECT_EQ(FormatFrequencyFixed(1000, -2), "1000.00000  ");
    EXPECT_EQ(FormatFrequencyFixed(100, -2), "100.00000");
}
TEST(FormatFrequencyFixed, PositivePaddingPrependsBlanks) {
    EXPECT_EQ(FormatFrequencyFixed(5, 2), "    5.00000");
    EXPECT_EQ(FormatFrequencyFixed(5, 1), "  5.00000");
}
TEST(FormatFrequencyFixed, ZeroPaddingHasNoBlanks) {
    EXPECT_EQ(FormatFrequencyFixed(5, 0), "5.00000");
}

TEST(FormatFrequencyLong, ZeroIsOffElseLongPattern) {
    EXPECT_EQ(FormatFrequencyLong(0), "Off");
    EXPECT_EQ(FormatFrequencyLong(14.31818), "14.31818");
    EXPECT_EQ(FormatFrequencyLong(100), "100.0");
}
TEST(FormatFrequencyShort, ZeroIsOffElseShortPattern) {
    EXPECT_EQ(FormatFrequencyShort(0), "Off");
    EXPECT_EQ(FormatFrequencyShort(66.666666667), "66.66667");
    EXPECT_EQ(FormatFrequencyShort(8), "8.0");
}
TEST(FormatFrequencyAbsolute, AbsoluteGeneralNumberWithUnit) {
    EXPECT_EQ(FormatFrequencyAbsolute("0"), "Off");
    EXPECT_EQ(FormatFrequencyAbsolute("Off"), "Off");
    EXPECT_EQ(FormatFrequencyAbsolute("-12.5 MHz"), "12.5 MHz");
    EXPECT_EQ(FormatFrequencyAbsolute("100"), "100 MHz");
}

TEST(PadOutputString, PadsButNeverCuts) {
    EXPECT_EQ(PadOutputString("abc", 5), "abc  ");
    EXPECT_EQ(PadOutputString("abcdef", 3), "abcdef");
    EXPECT_EQ(PadOutputString("abc", 3), "abc");
}

TEST(GetSubstring, StartMarkerIgnoresCase) {
    EXPECT_EQ(GetSubstring("xP:5 Q:3", "p:", "Q:"), "5 ");
}
TEST(GetSubstring, EndMarkerKeepsCase) {
    EXPECT_EQ(GetSubstring("P:5 q:3", "P:", "Q:"), "5 q:3");
}
TEST(GetSubstring, BothMarkersEmptyGivesWholeText) {
    EXPECT_EQ(GetSubstring("abc", "", ""), "abc");
}
TEST(GetSubstring, EmptyEndMarkerGivesRestBehindStart) {
    EXPECT_EQ(GetSubstring("P:5 Q:3", "P:", ""), "5 Q:3");
}
TEST(GetSubstring, MissingStartMarkerGivesEmpty) {
    EXPECT_EQ(GetSubstring("xyz", "P:", "Q:"), "");
    EXPECT_EQ(GetSubstring("xyz", "P:", ""), "");
}
TEST(GetSubstring, EndMarkerSearchStartsAtStartMarker) {
    // The "Q:" in front of "P:" is not found; the one behind is.
    EXPECT_EQ(GetSubstring("Q:P:5 Q:3", "P:", "Q:"), "5 ");
}
TEST(GetSubstring, EmptyStartMarkerGivesTextBeforeEnd) {
    EXPECT_EQ(GetSubstring("abc:def", "", ":"), "abc");
    EXPECT_EQ(GetSubstring("abc", "", ":"), "abc");
    EXPECT_EQ(GetSubstring(":abc", "", ":"), ":abc");
}

TEST(SetListIndex, NumericMatchFindsFormattedEntry) {
    ListField list;
    list.AddItem("12.00000 MHz");
    list.AddItem("10.00000 MHz");
    int clicks = 0;
    list.OnClick = [&] { ++clicks; };
    EXPECT_TRUE(SetListIndex(list, "10 MHz"));
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(clicks, 1);
}
TEST(SetListIndex, ExactMatchTrimsEntryAndIgnoresCase) {
    ListField list;
    list.AddItem("PLL");
    list.AddItem(" ref/2 ");
    EXPECT_TRUE(SetListIndex(list, "REF/2", true));
    EXPECT_EQ(list.ListIndex(), 1);
    // Numerically "PLL" and "ref/2" are both 0; exact does not use numbers.
    EXPECT_FALSE(SetListIndex(list, "0", true));
}
TEST(SetListIndex, FirstMatchWins) {
    ListField list;
    list.AddItem("Off");
    list.AddItem("PLL");
    EXPECT_TRUE(SetListIndex(list, "0"));
    EXPECT_EQ(list.ListIndex(), 0);
}
TEST(SetListIndex, NoMatchLeavesIndexAlone) {
    ListField list;
    list.AddItem("1");
    list.AddItem("2");
    list.SetListIndex(1);
    EXPECT_FALSE(SetListIndex(list, "3"));
    EXPECT_EQ(list.ListIndex(), 1);
    ListField empty;
    EXPECT_FALSE(SetListIndex(empty, "3"));
    EXPECT_EQ(empty.ListIndex(), -1);
}

TEST(FormatReferenceComboBox, SelectsExistingEntryNumerically) {
    ListField list;
    list.SetAllowsFreeText(true);
    list.AddItem("12.00000 MHz");
    list.AddItem("14.31818 MHz");
    list.SetText("14.31818");
    FormatReferenceComboBox(list);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.ListCount(), 2);
}
TEST(FormatReferenceComboBox, AddsCanonicalEntryForNewValue) {
    ListField list;
    list.SetAllowsFreeText(true);
    list.AddItem("12.00000 MHz");
    list.SetText("13.5");
    FormatReferenceComboBox(list);
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.List(1), "13.50000 MHz");
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), "13.50000 MHz");
}

TEST(IsOff, TextFieldIsOffWhenItsNumberIsZero) {
    TextField text;
    text.SetText("Off");
    EXPECT_TRUE(IsOff(text));
    text.SetText("0.000");
    EXPECT_TRUE(IsOff(text));
    text.SetText("12 MHz");
    EXPECT_FALSE(IsOff(text));
}
TEST(IsOff, ListFieldIsOffWhenTextContainsOff) {
    ListField list;
    list.AddItem("PLL/2");
    list.AddItem("off");
    list.SetListIndex(0);
    EXPECT_FALSE(IsOff(list));
    list.SetListIndex(1);
    EXPECT_TRUE(IsOff(list));
}
TEST(IsOff, OtherFieldsAreNeverOff) {
    Label label;
    label.SetCaption("Off");
    EXPECT_FALSE(IsOff(label));
}

TEST(CheckLimits, InsideInclusiveRangeIsWindowText) {
    TextField text;
    text.SetForeColor(colors::Red);
    text.SetText("5");
    CheckLimits(text, 5, 10);
    EXPECT_EQ(text.ForeColor(), colors::WindowText);
    text.SetText(" 10 MHz");
    text.SetForeColor(colors::Red);
    CheckLimits(text, 5, 10);
    EXPECT_EQ(text.ForeColor(), colors::WindowText);
}
TEST(CheckLimits, OutsideRangeIsRed) {
    TextField text;
    text.SetText("10.1");
    CheckLimits(text, 5, 10);
    EXPECT_EQ(text.ForeColor(), colors::Red);
    text.SetText("4.9");
    text.SetForeColor(colors::WindowText);
    CheckLimits(text, 5, 10);
    EXPECT_EQ(text.ForeColor(), colors::Red);
}
TEST(CheckLimits, TextBeginningWithNOrONeverTurnsRed) {
    TextField text;
    text.SetText("N/A");
    text.SetForeColor(colors::Red);
    CheckLimits(text, 5, 10);
    EXPECT_EQ(text.ForeColor(), colors::WindowText);
    text.SetText("  Off");
    CheckLimits(text, 5, 10);
    EXPECT_EQ(text.ForeColor(), colors::WindowText);
}
TEST(CheckLimits, WorksOnLabels) {
    Label label;
    label.SetCaption(" 200.00000");
    CheckLimits(label, 0.5, 130);
    EXPECT_EQ(label.ForeColor(), colors::Red);
}

TEST(HighLightText, SelectsWholeText) {
    TextField text;
    text.SetText("abcd");
    HighLightText(text);
    EXPECT_EQ(text.SelStart(), 0);
    EXPECT_EQ(text.SelLength(), 4);
}

TEST(MaskKeystrokeForNumbers, LetterIsCancelledWithBeep) {
    HeadlessPlatform platform;
    int key = 'a';
    MaskKeystrokeForNumbers(key, 0, platform);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(platform.Beeps(), 1);
}
TEST(MaskKeystrokeForNumbers, DigitsAndEditingKeysPassInBothModes) {
    HeadlessPlatform platform;
    for (int mode : {0, 1}) {
        for (int code : {int{'0'}, int{'5'}, int{'9'}, 46, 8, 9, 36, 35, 16, 13}) {
            int key = code;
            MaskKeystrokeForNumbers(key, mode, platform);
            EXPECT_EQ(key, code) << "code " << code << " mode " << mode;
        }
    }
    EXPECT_EQ(platform.Beeps(), 0);
}
TEST(MaskKeystrokeForNumbers, CommaOnlyWithDecimalMode) {
    HeadlessPlatform platform;
    int key = ',';
    MaskKeystrokeForNumbers(key, 0, platform);
    EXPECT_EQ(key, ',');
    MaskKeystrokeForNumbers(key, 1, platform);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(platform.Beeps(), 1);
}

class StateWindow : public Window {
  public:
    StateWindow() : Window("frmState") {
        Register("chkA", chkA);
        optA.SetGroup("g");
        optB.SetGroup("g");
        Register("optA", optA);
        Register("optB", optB);
        Register("cboA", cboA);
        Register("txtA", txtA);
        Register("lblA", lblA);
        Register("optC", optC);
    }
    CheckBox chkA;
    OptionButton optA, optB, optC;
    ListField cboA;
    TextField txtA;
    Label lblA;
};

TEST(ComputeState, WeighsEachControlBySquaredIndex) {
    StateWindow w;
    w.chkA.SetValue(1);        // index 0: weight 0
    w.optA.SetValue(true);     // index 1: 1 x 2
    w.optB.SetEnabled(false);  // index 2: 4 x 1
    w.cboA.AddItem("a");
    w.cboA.AddItem("b");
    w.cboA.AddItem("c");
    w.cboA.SetListIndex(2);  // index 3: 9 x 3
    w.txtA.SetText("AB");    // index 4: 16 x 195
    w.lblA.SetCaption("x");  // index 5: 0
    // optC, index 6: enabled and clear: 36 x 3
    EXPECT_EQ(ComputeState(w), FormState(2 + 4 + 27 + 3120 + 108));
}
TEST(ComputeState, EditKeepingFirstCharacterAndLengthIsUnseen) {
    StateWindow w;
    w.txtA.SetText("AB");
    const FormState before = ComputeState(w);
    w.txtA.SetText("AZ");
    EXPECT_EQ(ComputeState(w), before);
    w.txtA.SetText("AZZ");
    EXPECT_NE(ComputeState(w), before);
}
TEST(ComputeState, FirstControlHasNoWeight) {
    StateWindow w;
    const FormState before = ComputeState(w);
    w.chkA.SetValue(2);
    EXPECT_EQ(ComputeState(w), before);
}

// A long text outweighs the rest of the form by far more than a Double's 53 bits: the change of
// a short field beside it is still seen, also where the text's own weight is beyond a Double.
TEST(ComputeState, AChangeBesideALongTextIsSeen) {
    for (const size_t length : {60u, 200u, 1100u, 5000u}) {
        StateWindow w;
        std::string path(length, 'a');
        path[0] = '/';
        w.txtA.SetText(path);
        w.cboA.AddItem("a");
        w.cboA.AddItem("b");
        w.cboA.SetListIndex(0);
        const FormState before = ComputeState(w);
        w.cboA.SetListIndex(1);
        EXPECT_NE(ComputeState(w), before) << length;
        w.cboA.SetListIndex(0);
        EXPECT_EQ(ComputeState(w), before) << length;
        // One character more in the long text is a change too.
        path.push_back('b');
        w.txtA.SetText(path);
        EXPECT_NE(ComputeState(w), before) << length;
    }
}
// The text's weight is the whole number first character x (2^length - 1), carried across the
// 32-bit digits: "AB" is 65 x 3; a text of 40 "A"s is 65 x (2^40 - 1).
TEST(ComputeState, ATextWeighsItsExactFingerprint) {
    StateWindow w;
    w.txtA.SetText(std::string(40, 'A'));  // index 4: weight 16
    FormState expected(16u * 65u * ((std::uint64_t{1} << 40) - 1));
    expected.Add(1u * 3u + 4u * 3u + 36u * 3u);  // the option buttons, enabled and clear
    EXPECT_EQ(ComputeState(w), expected);
    FormState built;
    built.Add(16u * 65u, 40);
    built.Subtract(16u * 65u);
    built.Add(1u * 3u + 4u * 3u + 36u * 3u);
    EXPECT_EQ(built, expected);
}
TEST(FormState, AddsAndSubtractsAcrossDigits) {
    FormState a;
    a.Add(0xFFFFFFFFFFFFFFFFu, 31);
    a.Add(1, 31);
    FormState b;
    b.Add(1, 95);
    EXPECT_EQ(a, b);
    b.Subtract(1);
    FormState c;
    c.Add(0xFFFFFFFFFFFFFFFFu, 0);
    c.Add(0x7FFFFFFFu, 64);  // 2^95 - 1
    EXPECT_EQ(b, c);
    c.Subtract(0xFFFFFFFFFFFFFFFFu);  // (2^31 - 1) x 2^64
    FormState d(0);
    d.Add(0x7FFFFFFFu, 64);
    d.Add(0, 200);
    d.Subtract(0xFFFFFFFFu);
    d.Add(0xFFFFFFFFu);
    EXPECT_EQ(c, d);
    EXPECT_EQ(FormState(0), FormState());
    EXPECT_NE(FormState(1), FormState());
}

}  // namespace
}  // namespace pendulon
