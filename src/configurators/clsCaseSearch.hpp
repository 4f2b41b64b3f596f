#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/clsQX5140.hpp"

namespace pendulon {

class ErrorReport;
class clsPLL;
class cls7311Die;
class clsQX7311;

// The case search of the QX5140: which source drives each output, and through which divider.
// Outputs by index: 0 CLKA in select state 0, 1 CLKA in select state 1, 2 CLKB, 3 CLKC. A row of
// mstrSources is one case, with one source text per output: "", "Off", "Ref", "Ref/n",
// "CPLL/n", "SPLL/n" or "UPLL/n". The order of the rows is the order the cases are found in,
// which is the order the engineer steps through them.
//
// The search runs on the three loops, the die and the device rules it is given, and reads no
// window: the QX5140 window and the tests drive it alike.
class clsCaseSearch {
  public:
    using Row = std::array<std::string, 4>;

    // What one search reads.
    struct Inputs {
        // The reference frequency the divided-reference outputs get, in MHz.
        double dblReference = 0;
        // The sensitivity as typed: the number in the PPM field.
        double dblSensitivity = 1000;
        // Desired frequencies in MHz by output index; 0 is "Off".
        std::array<double, 4> adblDesired{};
        // Private loop of CLKA, CLKB, CLKC.
        std::array<bool, 3> ablnPrivate{};
        // Pin 8 is Select/Suspend: CLKA sits on CPLL in both states.
        bool blnSelect = false;
    };

    // One StorePLLPandQ the window makes to show a case: output frequency, source text, and the
    // row of the CPLL data list.
    struct Store {
        double dblFrequency = 0;
        std::string strSource;
        int intWhichCase = 0;
    };

    // What the window shows for the case on show.
    struct CaseView {
        // lblClkASrcDiv, lblClkBSrcDiv, lblClkCSrcDiv.
        std::array<std::string, 3> astrLabels;
        // lblCaseMessage.
        std::string strMessage;
        std::vector<Store> aStores;
    };

    // A loop as the case on show sets it: the divider of the last output on it and the VCO it
    // is solved for (divider x desired frequency of that output); 0 for a loop no output uses.
    struct LoopChoice {
        std::int32_t lngDivider = 0;
        double dblTargetVCO = 0;
    };

    clsCaseSearch(ErrorReport& errors, clsPLL& spll, clsPLL& upll, clsPLL& cpll, cls7311Die& die,
                  clsQX7311& device);

    // Divider tables, built once.
    void InitializePLLDivisorArrays();

    // Loop limits from the die at its voltage: counters, and VCO ranges twice the die's
    // frequency limits. Returns the output range through minimum and maximum.
    void InitializeAllPLLClasses(double& dblMinimumOutput, double& dblMaximumOutput);
    // Maximum Q and reference frequency of each loop.
    void SetPLLValues(double dblReference);

    // A fresh search (blnInputsChanged) finds every case and shows the first; otherwise the
    // next case is shown, wrapping round to the first. Returns false when the search met a
    // sharing row that serves one output only, a fault of the search: no case is shown then.
    bool FindClockSources(bool blnInputsChanged, const Inputs& inputs);
    // The labels and loop settings of the case on show.
    CaseView ShowCase(bool blnSelect) const;
    // The loops as the case on show sets them: SPLL, CPLL, UPLL.
    std::array<LoopChoice, 3> ChosenLoops(bool blnSelect) const;

    // The single-source searches. An empty text means no divider works.
    std::string FindReferenceDivisor(double dblDesired, std::int32_t& lngPPM,
                                     bool blnIgnoreSensitivity);
    std::string FindCPLLDivisor(double dblDesired, double dblSecondDesired);
    std::string FindSPLLDivisor(double dblDesired);
    std::string FindUPLLDivisor(double dblDesired);

    static void RemoveDuplicatesFromMstrSources(std::vector<Row>& rows);

    // Results of the last search and the case on show.
    std::vector<Row> mstrSources;
    std::array<double, 4> madblDesired{};
    std::array<std::int32_t, 4> malngSourcePPM{};
    int mintCalculateCounter = 0;
    // The inputs the single-source searches read.
    Inputs mInputs;

    std::vector<std::int16_t> maintRefDivisors;
    std::vector<std::int16_t> maintCPLLDivisors;
    std::vector<std::int16_t> maintUPLLDivisors;
    std::vector<std::int16_t> maintSPLLDivisors;

    // FindCommonVCO calls of the last search (for measurement).
    int mintCommonVCOCalls = 0;

  private:
    // Stages of a fresh search.
    void ShareOutputs();
    void CompleteRows();
    void CompleteSelectRows();
    bool mblnFault = false;

    // Applies the next free loop of usedLetters to column, writing its result into the cell of
    // row, and adds the loop's letter.
    void NextFreeLoop(std::string& usedLetters, size_t row, int column);
    std::string FindLoopDivisor(clsPLL& pll, const std::vector<std::int16_t>& divisors,
                                const char* name, double dblDesired);
    void Grow();
    void Shrink();

    ErrorReport& errors_;
    clsPLL& mclsSPLL;
    clsPLL& mclsUPLL;
    clsPLL& mclsCPLL;
    cls7311Die& mclsDie;
    clsQX7311& mclsDevice;
    clsQX5140 mclsQX5140;
    size_t mlngWriteRow = 0;
    std::int32_t mlngMaximumPPM = 0;
};

}  // namespace pendulon
