#include "configurators/clsCaseSearch.hpp"

#include <algorithm>

#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX7311.hpp"
#include "core/mShared.hpp"

namespace pendulon {

namespace {

constexpr std::int32_t kNoSolution = mShared::kNoSolutionPPM;
constexpr int kOutputColumns[3] = {0, 2, 3};

std::int32_t AbsLong(std::int32_t value) {
    return value < 0 ? -value : value;
}

bool Has(const std::string& text) {
    return !text.empty();
}

bool Contains(const std::string& letters, char letter) {
    return letters.find(letter) != std::string::npos;
}

// The first letter of the first filled cell in the order 0, 2, 3.
std::string FirstUsedLetter(const clsCaseSearch::Row& row) {
    for (const int c : kOutputColumns)
        if (Has(row[static_cast<size_t>(c)]))
            return std::string(1, row[static_cast<size_t>(c)][0]);
    return {};
}

std::string SourceText(const char* name, std::int32_t divider) {
    if (divider == 1)
        return name;
    return std::string(name) + "/" + IntegerText(divider);
}

// An output group of the sharing stage.
struct Group {
    int columns[3];
    int count;                  // columns of the group, 2 or 3
    int outputs[3];             // desired-frequency index of each argument of FindCommonVCO
    bool offInReferenceRow[4];  // fixed "Off" cells of the reference row
    bool offInLoopRow[4];       // fixed "Off" cells of a loop row
    bool counted[4];            // cells that count towards keeping the row
    int privates[3];            // private boxes that skip the group
    int privateCount;
};

constexpr Group kGroups[4] = {
    // CLKA, CLKB, CLKC
    {{0, 2, 3},
     3,
     {0, 2, 3},
     {false, true, false, false},
     {false, true, false, false},
     {true, false, true, true},
     {0, 1, 2},
     3},
    // CLKA, CLKB
    {{0, 2, -1},
     2,
     {0, 2, -1},
     {false, true, false, false},
     {false, true, false, false},
     {true, false, true, true},
     {0, 1, -1},
     2},
    // CLKA, CLKC: CLKB stays off in the reference row, open in the loop rows.
    {{0, 3, -1},
     2,
     {0, 3, -1},
     {false, true, true, false},
     {false, true, false, false},
     {true, false, false, true},
     {0, 2, -1},
     2},
    // CLKB, CLKC
    {{2, 3, -1},
     2,
     {2, 3, -1},
     {false, false, false, false},
     {false, false, false, false},
     {false, false, true, true},
     {1, 2, -1},
     2},
};

}  // namespace

clsCaseSearch::clsCaseSearch(ErrorReport& errors, clsPLL& spll, clsPLL& upll, clsPLL& cpll,
                             cls7311Die& die, clsQX7311& device)
    : errors_(errors),
      mclsSPLL(spll),
      mclsUPLL(upll),
      mclsCPLL(cpll),
      mclsDie(die),
      mclsDevice(device) {
    InitializePLLDivisorArrays();
}

// ---------------------------------------------------------------- tables and loops

void clsCaseSearch::InitializePLLDivisorArrays() {
    maintRefDivisors.assign(4, 0);
    maintCPLLDivisors.assign(4, 0);
    maintUPLLDivisors.assign(4, 0);
    std::int16_t value = 1;
    for (size_t i = 0; i < maintRefDivisors.size(); ++i) {
        maintRefDivisors[i] = value;
        maintCPLLDivisors[i] = static_cast<std::int16_t>(2 * value);
        maintUPLLDivisors[i] = static_cast<std::int16_t>(2 * value);
        value = static_cast<std::int16_t>(2 * value);
    }
    // The SPLL's dividers are the bases 1, 3, 5, 12 and 13 times 2, 4, 8 and 16, each once.
    std::array<std::int16_t, 20> scratch{};
    size_t n = 0;
    for (const std::int16_t base : {1, 3, 5, 12, 13})
        for (const std::int16_t multiplier : {2, 4, 8, 16})
            scratch[n++] = static_cast<std::int16_t>(base * multiplier);
    for (size_t i = 0; i < scratch.size(); ++i)
        for (size_t j = i + 1; j < scratch.size(); ++j)
            if (scratch[j] < scratch[i])
                std::swap(scratch[i], scratch[j]);
    // The last slot is kept blank for the next new value.
    maintSPLLDivisors.assign(1, scratch[0]);
    maintSPLLDivisors.push_back(0);
    for (size_t k = 1; k < scratch.size(); ++k) {
        const bool last = k + 1 == scratch.size();
        bool found = false;
        for (size_t e = 0; e + 1 < maintSPLLDivisors.size(); ++e)
            if (maintSPLLDivisors[e] == scratch[k])
                found = true;
        if (!found) {
            maintSPLLDivisors.back() = scratch[k];
            if (!last)
                maintSPLLDivisors.push_back(0);
        } else if (last) {
            maintSPLLDivisors.pop_back();
        }
    }
}

void clsCaseSearch::InitializeAllPLLClasses(double& dblMinimumOutput, double& dblMaximumOutput) {
    const bool v3 = mclsDie.mdblVoltage == 3.3;
    cls7311Die& d = mclsDie;
    mclsSPLL.mdblMaxP = v3 ? d.mdblSPLLMaxP3V : d.mdblSPLLMaxP5V;
    mclsSPLL.mdblMaxQ = v3 ? d.mdblSPLLMaxQ3V : d.mdblSPLLMaxQ5V;
    mclsSPLL.mdblMinP = v3 ? d.mdblSPLLMinP3V : d.mdblSPLLMinP5V;
    mclsSPLL.mdblMinQ = v3 ? d.mdblSPLLMinQ3V : d.mdblSPLLMinQ5V;
    mclsUPLL.mdblMaxP = v3 ? d.mdblUPLLMaxP3V : d.mdblUPLLMaxP5V;
    mclsUPLL.mdblMaxQ = v3 ? d.mdblUPLLMaxQ3V : d.mdblUPLLMaxQ5V;
    mclsUPLL.mdblMinP = v3 ? d.mdblUPLLMinP3V : d.mdblUPLLMinP5V;
    mclsUPLL.mdblMinQ = v3 ? d.mdblUPLLMinQ3V : d.mdblUPLLMinQ5V;
    mclsCPLL.mdblMaxP = v3 ? d.mdblCPLLMaxP3V : d.mdblCPLLMaxP5V;
    mclsCPLL.mdblMaxQ = v3 ? d.mdblCPLLMaxQ3V : d.mdblCPLLMaxQ5V;
    mclsCPLL.mdblMinP = v3 ? d.mdblCPLLMinP3V : d.mdblCPLLMinP5V;
    mclsCPLL.mdblMinQ = v3 ? d.mdblCPLLMinQ3V : d.mdblCPLLMinQ5V;
    // A loop's VCO runs at twice the die's frequency limits of that loop.
    mclsSPLL.mdblVCOMax = 2 * d.MaximumSPLLVoltage();
    mclsSPLL.mdblVCOMin = 2 * d.MinimumSPLLVoltage();
    mclsUPLL.mdblVCOMax = 2 * d.MaximumUPLLVoltage();
    mclsUPLL.mdblVCOMin = 2 * d.MinimumUPLLVoltage();
    mclsCPLL.mdblVCOMax = 2 * d.MaximumCPLLVoltage();
    mclsCPLL.mdblVCOMin = 2 * d.MinimumCPLLVoltage();
    dblMaximumOutput =
        std::max({d.MaximumSPLLVoltage(), d.MaximumUPLLVoltage(), d.MaximumCPLLVoltage()});
    // 16 is the largest output divider in single use.
    dblMinimumOutput =
        std::min({d.MinimumSPLLVoltage(), d.MinimumUPLLVoltage(), d.MinimumCPLLVoltage()}) / 16;
}

void clsCaseSearch::SetPLLValues(double dblReference) {
    const bool v3 = mclsDie.mdblVoltage == 3.3;
    const auto limit = [](double value) {
        const auto converted = ToLong(value);
        return converted ? *converted : 0;
    };
    mclsCPLL.mdblMaxQ = mclsDevice.GetMaximumQ(
        dblReference, limit(v3 ? mclsDie.mdblCPLLMaxQ3V : mclsDie.mdblCPLLMaxQ5V));
    mclsSPLL.mdblMaxQ = mclsDevice.GetMaximumQ(
        dblReference, limit(v3 ? mclsDie.mdblSPLLMaxQ3V : mclsDie.mdblSPLLMaxQ5V));
    mclsUPLL.mdblMaxQ = mclsDevice.GetMaximumQ(
        dblReference, limit(v3 ? mclsDie.mdblUPLLMaxQ3V : mclsDie.mdblUPLLMaxQ5V));
    mclsCPLL.mdblReferenceFrequency = dblReference;
    mclsSPLL.mdblReferenceFrequency = dblReference;
    mclsUPLL.mdblReferenceFrequency = dblReference;
}

// ---------------------------------------------------------------- single-source searches

std::string clsCaseSearch::FindReferenceDivisor(double dblDesired, std::int32_t& lngPPM,
                                                bool blnIgnoreSensitivity) {
    lngPPM = kNoSolution;
    std::int32_t best = 0;
    for (const std::int16_t d : maintRefDivisors) {
        const std::int32_t p = mShared::CalculatePPM(mInputs.dblReference / d, dblDesired);
        // lngPPM reports the closest divider even when it is too far off to be used.
        if (AbsLong(p) < AbsLong(lngPPM)) {
            lngPPM = p;
            if (blnIgnoreSensitivity || mInputs.dblSensitivity > AbsLong(p))
                best = d;
        }
    }
    if (best == 0)
        return {};
    return SourceText("Ref", best);
}

std::string clsCaseSearch::FindLoopDivisor(clsPLL& pll, const std::vector<std::int16_t>& divisors,
                                           const char* name, double dblDesired) {
    std::int32_t bestPPM = kNoSolution;
    std::int32_t best = 0;
    // From the largest divider down: a tie goes to the highest VCO.
    for (auto it = divisors.rbegin(); it != divisors.rend(); ++it) {
        pll.mdblTargetVCO = *it * dblDesired;
        pll.FindPAndQ();
        if (AbsLong(pll.BestPPM()) < AbsLong(bestPPM)) {
            bestPPM = pll.BestPPM();
            best = *it;
        }
    }
    if (best == 0)
        return {};
    return SourceText(name, best);
}

std::string clsCaseSearch::FindSPLLDivisor(double dblDesired) {
    return FindLoopDivisor(mclsSPLL, maintSPLLDivisors, "SPLL", dblDesired);
}

std::string clsCaseSearch::FindUPLLDivisor(double dblDesired) {
    return FindLoopDivisor(mclsUPLL, maintUPLLDivisors, "UPLL", dblDesired);
}

std::string clsCaseSearch::FindCPLLDivisor(double dblDesired, double dblSecondDesired) {
    std::int32_t bestSum = kNoSolution;
    std::int32_t best = 0;
    std::int32_t p1 = 0;
    std::int32_t p2 = 0;
    const double limit =
        mclsDie.mdblVoltage == 3.3 ? mclsDie.mdblCPLLMaxQ3V : mclsDie.mdblCPLLMaxQ5V;
    std::vector<double> products(2, 0.0);
    const auto setMaxQ = [&] {
        // In Select/Suspend the loop swings between the two states: Q is narrowed for that.
        if (mInputs.blnSelect) {
            mclsCPLL.mdblMaxQ = mclsDevice.GetCPLLQMax(
                mclsCPLL.mdblTargetVCO, mclsCPLL.mdblReferenceFrequency, limit, products);
        } else {
            mclsCPLL.mdblMaxQ = limit;
        }
    };
    for (auto it = maintCPLLDivisors.rbegin(); it != maintCPLLDivisors.rend(); ++it) {
        const double d = *it;
        products[0] = d * dblDesired;
        products[1] = d * dblSecondDesired;
        if (dblDesired > 0) {
            mclsCPLL.mdblTargetVCO = products[0];
            setMaxQ();
            mclsCPLL.FindPAndQ();
            p1 = mclsCPLL.BestPPM();
        }
        if (dblSecondDesired > 0) {
            mclsCPLL.mdblTargetVCO = products[1];
            setMaxQ();
            mclsCPLL.FindPAndQ();
            p2 = mclsCPLL.BestPPM();
        }
        if (dblDesired != 0 || dblSecondDesired != 0) {
            const std::int32_t sum = AbsLong(p1) + AbsLong(p2);
            if (sum < bestSum) {
                bestSum = sum;
                best = *it;
            }
        }
    }
    if (best == 0)
        return {};
    return SourceText("CPLL", best);
}

// ---------------------------------------------------------------- rows

void clsCaseSearch::Grow() {
    mstrSources.emplace_back();
}

void clsCaseSearch::Shrink() {
    if (!mstrSources.empty())
        mstrSources.pop_back();
}

void clsCaseSearch::NextFreeLoop(std::string& usedLetters, size_t row, int column) {
    const double desired = madblDesired[static_cast<size_t>(column)];
    std::string& cell = mstrSources[row][static_cast<size_t>(column)];
    // The order U, S, C is deliberate. The letter counts as used even when the loop fails.
    if (!Contains(usedLetters, 'U')) {
        cell = FindUPLLDivisor(desired);
        usedLetters += 'U';
    } else if (!Contains(usedLetters, 'S')) {
        cell = FindSPLLDivisor(desired);
        usedLetters += 'S';
    } else if (!Contains(usedLetters, 'C')) {
        cell = FindCPLLDivisor(desired, 0);
        usedLetters += 'C';
    }
}

void clsCaseSearch::RemoveDuplicatesFromMstrSources(std::vector<Row>& rows) {
    for (size_t r = 0; r < rows.size(); ++r) {
        size_t s = r + 1;
        while (s < rows.size()) {
            if (rows[r] == rows[s]) {
                rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(s));
            } else {
                ++s;
            }
        }
    }
    // The last row once more against every earlier one.
    if (rows.size() > 1) {
        for (size_t r = rows.size() - 1; r-- > 0;) {
            if (rows[r] == rows.back()) {
                rows.pop_back();
                break;
            }
        }
    }
}

// ---------------------------------------------------------------- the search

bool clsCaseSearch::FindClockSources(bool blnInputsChanged, const Inputs& inputs) {
    if (!blnInputsChanged) {
        // A step: the next case of the last search, no input read.
        ++mintCalculateCounter;
        if (mintCalculateCounter > static_cast<int>(mstrSources.size()) - 1)
            mintCalculateCounter = 0;
        return true;
    }
    mInputs = inputs;
    mintCalculateCounter = 0;
    mintCommonVCOCalls = 0;
    mblnFault = false;
    madblDesired = inputs.adblDesired;
    mstrSources.assign(1, Row{});
    if (madblDesired[0] == 0 && madblDesired[1] == 0 && madblDesired[2] == 0 &&
        madblDesired[3] == 0)
        return true;
    mlngWriteRow = 0;
    const auto maximum = ToLong(inputs.dblSensitivity);
    mlngMaximumPPM = maximum ? *maximum : 0;
    ShareOutputs();
    if (!inputs.blnSelect) {
        CompleteRows();
    } else {
        CompleteSelectRows();
    }
    return !mblnFault;
}

void clsCaseSearch::ShareOutputs() {
    struct Loop {
        clsPLL* pll;
        const std::vector<std::int16_t>* divisors;
        const char* name;
    };
    const Loop loops[3] = {{&mclsUPLL, &maintUPLLDivisors, "UPLL"},
                           {&mclsCPLL, &maintCPLLDivisors, "CPLL"},
                           {&mclsSPLL, &maintSPLLDivisors, "SPLL"}};
    for (const Group& group : kGroups) {
        bool skip = false;
        for (int p = 0; p < group.privateCount; ++p)
            if (mInputs.ablnPrivate[static_cast<size_t>(group.privates[p])])
                skip = true;
        if (skip)
            continue;
        // After each attempt: a row that serves fewer than two outputs is cleared, a row that
        // serves two or more is kept and a new row opened.
        const auto keepOrClear = [&] {
            Row& row = mstrSources[mlngWriteRow];
            int filled = 0;
            for (size_t c = 0; c < 4; ++c)
                if (group.counted[c] && Has(row[c]))
                    ++filled;
            if (filled < 2) {
                row = Row{};
            } else {
                Grow();
                mlngWriteRow = mstrSources.size() - 1;
            }
        };
        // The reference, within the sensitivity.
        {
            Row& row = mstrSources[mlngWriteRow];
            for (int n = 0; n < group.count; ++n) {
                const auto c = static_cast<size_t>(group.columns[n]);
                row[c] = FindReferenceDivisor(madblDesired[c], malngSourcePPM[c], false);
            }
            for (size_t c = 0; c < 4; ++c)
                if (group.offInReferenceRow[c])
                    row[c] = "Off";
        }
        keepOrClear();
        for (const Loop& loop : loops) {
            // CPLL belongs to CLKA in Select/Suspend.
            if (group.columns[0] == 2 && loop.pll == &mclsCPLL && mInputs.blnSelect)
                continue;
            const double f1 = madblDesired[static_cast<size_t>(group.outputs[0])];
            const double f2 = madblDesired[static_cast<size_t>(group.outputs[1])];
            const double f3 =
                group.count == 3 ? madblDesired[static_cast<size_t>(group.outputs[2])] : 0;
            ++mintCommonVCOCalls;
            mclsQX5140.FindCommonVCO(f1, f2, f3, *loop.divisors, loop.pll->mdblVCOMax,
                                     loop.pll->mdblVCOMin, mlngMaximumPPM);
            if (mclsQX5140.VCO() > 0) {
                Row& row = mstrSources[mlngWriteRow];
                for (size_t c = 0; c < 4; ++c)
                    if (group.offInLoopRow[c])
                        row[c] = "Off";
                const std::int16_t muxes[3] = {mclsQX5140.mdblMux1, mclsQX5140.mdblMux2,
                                               mclsQX5140.mdblMux3};
                for (int n = 0; n < group.count; ++n)
                    if (muxes[n] > 0)
                        row[static_cast<size_t>(group.columns[n])] =
                            SourceText(loop.name, muxes[n]);
            }
            keepOrClear();
        }
    }
    // No trailing blank row unless it is the only one.
    if (mstrSources.size() > 1 && mstrSources[mlngWriteRow] == Row{}) {
        Shrink();
        mlngWriteRow = mstrSources.size() - 1;
    }
}

void clsCaseSearch::CompleteRows() {
    auto& rows = mstrSources;
    const auto desired = [this](int c) { return madblDesired[static_cast<size_t>(c)]; };
    const auto firstEmpty = [](const Row& row) {
        for (const int c : kOutputColumns)
            if (!Has(row[static_cast<size_t>(c)]))
                return c;
        return -1;
    };
    if (rows.size() > 1) {
        // Complete each sharing row: the reference if allowed, else one row per working loop.
        const size_t lastAtStart = rows.size() - 1;
        for (size_t i = 0; i <= lastAtStart && i < rows.size(); ++i) {
            const int col = firstEmpty(rows[i]);
            if (col < 0)
                continue;
            const auto c = static_cast<size_t>(col);
            std::string used = FirstUsedLetter(rows[i]);
            mlngWriteRow = i;
            if (!Contains(used, 'R'))
                rows[i][c] = FindReferenceDivisor(desired(col), malngSourcePPM[c], false);
            if (!Has(rows[mlngWriteRow][c])) {
                for (int round = 0; round < 4; ++round) {
                    NextFreeLoop(used, mlngWriteRow, col);
                    if (Has(rows[mlngWriteRow][c])) {
                        rows.push_back(rows[i]);
                        mlngWriteRow = rows.size() - 1;
                        rows[mlngWriteRow][c].clear();
                    }
                }
                if (!Has(rows[mlngWriteRow][c])) {
                    if (rows.size() > 1) {
                        // Takes off the array's last row: the blank copy, or, when no loop
                        // worked, the last row of all.
                        Shrink();
                        if (i + 1 >= rows.size())
                            break;
                    } else {
                        rows[mlngWriteRow][c] = "Off";
                    }
                }
            }
        }
        return;
    }
    Row& only = rows[0];
    if (Has(only[0]) || Has(only[2]) || Has(only[3])) {
        // One sharing row: its open column gets the reference or each free loop in turn.
        if (Has(only[0]) && Has(only[2]) && Has(only[3]))
            return;
        const int col = !Has(only[0]) ? 0 : (!Has(only[2]) ? 2 : 3);
        const auto c = static_cast<size_t>(col);
        std::string used = FirstUsedLetter(only);
        mlngWriteRow = 0;
        if (!Contains(used, 'R'))
            only[c] = FindReferenceDivisor(desired(col), malngSourcePPM[c], false);
        if (!Has(rows[0][c])) {
            for (int round = 0; round < 3; ++round) {
                NextFreeLoop(used, mlngWriteRow, col);
                if (Has(rows[mlngWriteRow][c])) {
                    rows.push_back(rows[mlngWriteRow]);
                    mlngWriteRow = rows.size() - 1;
                    rows[mlngWriteRow][c].clear();
                }
            }
            if (!Has(rows[mlngWriteRow][c])) {
                if (rows.size() > 1) {
                    Shrink();
                    --mlngWriteRow;
                } else {
                    rows[mlngWriteRow][c] = "Off";
                }
            }
        }
        return;
    }

    // Nothing could be shared.
    rows[0][1] = "Off";
    for (const int col : kOutputColumns) {
        const auto c = static_cast<size_t>(col);
        rows[0][c] = FindReferenceDivisor(desired(col), malngSourcePPM[c], false);
    }
    if (!Has(rows[0][0]) && !Has(rows[0][2]) && !Has(rows[0][3])) {
        // No output can use the reference: every assignment of the loops, first output first.
        for (const int j : kOutputColumns) {
            const auto cj = static_cast<size_t>(j);
            std::string used;
            mlngWriteRow = rows.size() - 1;
            for (int round = 0; round < 3; ++round) {
                NextFreeLoop(used, mlngWriteRow, j);
                if (!Has(rows[mlngWriteRow][cj]))
                    continue;
                const int second = j == 0 ? 2 : (j == 2 ? 3 : 0);
                const auto cs = static_cast<size_t>(second);
                const int third = ((j == 0 && second == 2) || (j == 2 && second == 0))   ? 3
                                  : ((j == 2 && second == 3) || (j == 3 && second == 2)) ? 0
                                                                                         : 2;
                const auto ct = static_cast<size_t>(third);
                std::string t1(1, used.back());
                bool secondGot = false;
                for (int inner = 0; inner < 2; ++inner) {
                    std::string t2(1, used.back());
                    const size_t before = t1.size();
                    NextFreeLoop(t1, mlngWriteRow, second);
                    if (t1.size() > before)
                        t2 += t1.back();
                    if (!Has(rows[mlngWriteRow][cs]))
                        continue;
                    secondGot = true;
                    NextFreeLoop(t2, mlngWriteRow, third);
                    if (Has(rows[mlngWriteRow][ct])) {
                        rows.push_back(rows[mlngWriteRow]);
                        mlngWriteRow = rows.size() - 1;
                        rows[mlngWriteRow][cs].clear();
                        rows[mlngWriteRow][ct].clear();
                    } else {
                        const Row& done = rows[mlngWriteRow];
                        Row next;
                        for (const int c : kOutputColumns)
                            if (!Has(done[static_cast<size_t>(c)]))
                                rows[mlngWriteRow][static_cast<size_t>(c)] = "Off";
                        next[1] = rows[mlngWriteRow][1];
                        if (inner == 0)
                            next[cj] = rows[mlngWriteRow][cj];
                        rows.push_back(next);
                        mlngWriteRow = rows.size() - 1;
                    }
                }
                if (!secondGot) {
                    for (const int c : kOutputColumns)
                        if (!Has(rows[mlngWriteRow][static_cast<size_t>(c)]))
                            rows[mlngWriteRow][static_cast<size_t>(c)] = "Off";
                    Row next;
                    next[1] = rows[mlngWriteRow][1];
                    next[cj] = rows[mlngWriteRow][cj];
                    rows.push_back(next);
                    mlngWriteRow = rows.size() - 1;
                }
            }
        }
        // Trim the open row.
        if (rows.size() == 1) {
            rows[mlngWriteRow][0] = "Off";
            rows[mlngWriteRow][2] = "Off";
            rows[mlngWriteRow][3] = "Off";
        } else if (!Has(rows[mlngWriteRow][0]) || !Has(rows[mlngWriteRow][2]) ||
                   !Has(rows[mlngWriteRow][3])) {
            Shrink();
            mlngWriteRow = rows.size() - 1;
        }
        // The cases that drive the most outputs survive.
        const auto driven = [](const Row& row) {
            int count = 0;
            for (const std::string& cell : row)
                if (cell != "Off")
                    ++count;
            return count;
        };
        int largest = 0;
        for (const Row& row : rows) largest = std::max(largest, driven(row));
        if (largest > 0)
            std::erase_if(rows, [&](const Row& row) { return driven(row) != largest; });
        RemoveDuplicatesFromMstrSources(rows);
    }

    // Exactly one output on the reference: the other two have free choice of a loop.
    const bool goOn = FirstLetter(rows[0][2]) == 'R' || FirstLetter(rows[0][3]) == 'R' ||
                      (rows.size() == 1 && FirstLetter(rows[0][0]) == 'R');
    if (!goOn)
        return;
    std::string used;
    mlngWriteRow = rows.size() - 1;
    int first = 0;
    int second = 0;
    if (Has(rows[mlngWriteRow][0])) {
        first = 2;
        second = 3;
    } else {
        first = 0;
        second = Has(rows[mlngWriteRow][2]) ? 3 : 2;
    }
    const auto cf = static_cast<size_t>(first);
    const auto cs = static_cast<size_t>(second);
    for (int round = 0; round < 3; ++round) {
        NextFreeLoop(used, mlngWriteRow, first);
        if (!Has(rows[mlngWriteRow][cf]))
            rows[mlngWriteRow][cf] = "Off";
        std::string t(1, used.back());
        for (int inner = 0; inner < 2; ++inner) {
            NextFreeLoop(t, mlngWriteRow, second);
            if (!Has(rows[mlngWriteRow][cs]))
                rows[mlngWriteRow][cs] = "Off";
            rows.push_back(rows[mlngWriteRow]);
            mlngWriteRow = rows.size() - 1;
            rows[mlngWriteRow][cs].clear();
            if (inner == 1)
                rows[mlngWriteRow][cf].clear();
        }
    }
    Shrink();
    mlngWriteRow = rows.size() - 1;
    RemoveDuplicatesFromMstrSources(rows);
}

void clsCaseSearch::CompleteSelectRows() {
    auto& rows = mstrSources;
    const double d0 = madblDesired[0];
    const double d1 = madblDesired[1];
    const double d2 = madblDesired[2];
    const double d3 = madblDesired[3];
    // CLKA sits on CPLL in both select states, on one divider.
    if (d0 == 0) {
        rows[0][0] = "Off";
    } else {
        rows[0][0] = FindCPLLDivisor(d0, d1);
        if (!Has(rows[0][0]))
            rows[0][0] = "Off";
    }
    if (d1 == 0) {
        rows[0][1] = "Off";
    } else {
        rows[0][1] = FindCPLLDivisor(d0, d1);
        if (!Has(rows[0][1]))
            rows[0][1] = "Off";
    }
    if (rows.size() > 1) {
        // The rows are the sharing rows of CLKB and CLKC.
        for (Row& row : rows) {
            row[0] = rows[0][0];
            row[1] = rows[0][1];
        }
        return;
    }
    const bool b = Has(rows[0][2]);
    const bool c = Has(rows[0][3]);
    if (b != c) {
        // A sharing row with one output is a fault of the search.
        mblnFault = true;
        return;
    }
    if (b && c)
        return;
    rows[0][2] = FindReferenceDivisor(d2, malngSourcePPM[2], false);
    rows[0][3] = FindReferenceDivisor(d3, malngSourcePPM[3], false);
    const bool bOnReference = FirstLetter(rows[0][2]) == 'R';
    const bool cOnReference = FirstLetter(rows[0][3]) == 'R';
    if (!bOnReference && !cOnReference) {
        mlngWriteRow = 0;
        for (int pass = 0; pass < 2; ++pass) {
            rows[mlngWriteRow][2] = pass == 0 ? FindUPLLDivisor(d2) : FindSPLLDivisor(d2);
            if (Has(rows[mlngWriteRow][2])) {
                const Row done = rows[mlngWriteRow];
                rows.push_back(Row{done[0], done[1], done[2], ""});
                rows.push_back(Row{done[0], done[1], "", ""});
                mlngWriteRow = rows.size() - 1;
            }
        }
        if (rows.size() == 1) {
            rows[mlngWriteRow][2] = "Off";
            for (int pass = 0; pass < 2; ++pass) {
                rows[mlngWriteRow][3] = pass == 0 ? FindUPLLDivisor(d3) : FindSPLLDivisor(d3);
                if (Has(rows[mlngWriteRow][3])) {
                    const Row done = rows[mlngWriteRow];
                    rows.push_back(Row{done[0], done[1], done[2], ""});
                    mlngWriteRow = rows.size() - 1;
                }
            }
            if (!Has(rows[mlngWriteRow][3])) {
                if (rows.size() == 1) {
                    rows[mlngWriteRow][3] = "Off";
                } else {
                    Shrink();
                    mlngWriteRow = rows.size() - 1;
                }
            }
        } else {
            Shrink();
            for (Row& row : rows) {
                if (FirstLetter(row[2]) == 'U') {
                    row[3] = FindSPLLDivisor(d3);
                } else if (FirstLetter(row[2]) == 'S') {
                    row[3] = FindUPLLDivisor(d3);
                }
                if (!Has(row[3]))
                    row[3] = "Off";
            }
            RemoveDuplicatesFromMstrSources(rows);
            const auto off = std::count_if(rows.begin(), rows.end(),
                                           [](const Row& row) { return row[3] == "Off"; });
            if (off > 0 && off < static_cast<std::ptrdiff_t>(rows.size()))
                std::erase_if(rows, [](const Row& row) { return row[3] == "Off"; });
        }
        return;
    }
    // One output on the reference, the other on UPLL, else SPLL; UPLL also gives an SPLL case.
    const size_t col = bOnReference ? 3 : 2;
    const double desired = bOnReference ? d3 : d2;
    rows[0][col] = FindUPLLDivisor(desired);
    if (!Has(rows[0][col])) {
        rows[0][col] = FindSPLLDivisor(desired);
        if (!Has(rows[0][col]))
            rows[0][col] = "Off";
        return;
    }
    rows.push_back(rows[0]);
    rows.back()[col] = FindSPLLDivisor(desired);
    if (!Has(rows.back()[col]))
        Shrink();
}

// ---------------------------------------------------------------- showing a case

clsCaseSearch::CaseView clsCaseSearch::ShowCase(bool blnSelect) const {
    CaseView view;
    if (madblDesired[0] == 0 && madblDesired[1] == 0 && madblDesired[2] == 0 &&
        madblDesired[3] == 0) {
        view.astrLabels = {"Off", "Off", "Off"};
        return view;
    }
    Row row;
    const int c = mintCalculateCounter;
    if (c >= 0 && c < static_cast<int>(mstrSources.size()))
        row = mstrSources[static_cast<size_t>(c)];
    std::string a = row[0];
    if (a == "Off")
        a = (row[1] == "Off" || row[1].empty()) ? "Off" : row[1];
    view.astrLabels[0] = a;
    view.aStores.push_back({madblDesired[0], a, 0});
    if (blnSelect && FirstLetter(a) == 'C')
        view.aStores.push_back({madblDesired[1], a, 1});
    view.astrLabels[1] = row[2].empty() ? "Off" : row[2];
    view.aStores.push_back({madblDesired[2], view.astrLabels[1], 0});
    view.astrLabels[2] = row[3].empty() ? "Off" : row[3];
    view.aStores.push_back({madblDesired[3], view.astrLabels[2], 0});
    view.strMessage = "Case " + IntegerText(c + 1) + " of " + IntegerText(mstrSources.size());
    return view;
}

std::array<clsCaseSearch::LoopChoice, 3> clsCaseSearch::ChosenLoops(bool blnSelect) const {
    std::array<LoopChoice, 3> loops{};
    const CaseView view = ShowCase(blnSelect);
    for (const Store& store : view.aStores) {
        const char letter = FirstLetter(store.strSource);
        const int index = letter == 'S' ? 0 : letter == 'C' ? 1 : letter == 'U' ? 2 : -1;
        if (index < 0 || (letter == 'C' && store.intWhichCase != 0))
            continue;
        const std::int32_t divider = mShared::GetNonZeroDivisor(store.strSource);
        // A shared loop is solved for its last output.
        loops[static_cast<size_t>(index)] = {divider, divider * store.dblFrequency};
    }
    return loops;
}

}  // namespace pendulon
