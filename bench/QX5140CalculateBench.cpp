// The slowest Calculate of the QX5140: three outputs that share nothing within the sensitivity,
// so every one of the twelve shared attempts walks its loop's whole divider table (17 x 17 x 17
// rounds on SPLL with three outputs) without an exact hit to stop it, and the loops are then
// enumerated output by output. Measured for the search alone and for the window's whole
// Calculate press with a yellow button.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "core/cls7311Die.hpp"
#include "core/clsPLL.hpp"
#include "core/clsQX7311.hpp"
#include "platform/Color.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "configurators/clsCaseSearch.hpp"
#include "core/clsQX5140.hpp"
#include "configurators/frmQX5140.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace {

using namespace pendulon;

void BM_QX5140CommonVCOThreeOutputsOnSPLL(benchmark::State& state) {
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon(tm) 3.71"); });
    clsPLL spll(errors), upll(errors), cpll(errors);
    cls7311Die die(errors);
    clsQX7311 device(errors);
    clsCaseSearch search(errors, spll, upll, cpll, die, device);
    clsQX5140 shared;
    for (auto _ : state) {
        shared.FindCommonVCO(50, 33, 7, search.maintSPLLDivisors, 200, 16, 1000);
        benchmark::DoNotOptimize(shared.VCO());
    }
    state.counters["rounds"] = shared.Rounds();
}
BENCHMARK(BM_QX5140CommonVCOThreeOutputsOnSPLL);

void BM_QX5140SearchWorstCase(benchmark::State& state) {
    HeadlessPlatform platform;
    ErrorReport errors(platform, [] { return std::string("Pendulon(tm) 3.71"); });
    clsPLL spll(errors), upll(errors), cpll(errors);
    cls7311Die die(errors);
    die.mdblDefaultPLLMinimum5V = 8;
    die.mdblDefaultPLLMaximum5V = 100;
    die.SetDefaultLimits();
    clsQX7311 device(errors);
    clsCaseSearch search(errors, spll, upll, cpll, die, device);
    double minimum = 0;
    double maximum = 0;
    search.InitializeAllPLLClasses(minimum, maximum);
    clsCaseSearch::Inputs inputs;
    inputs.dblReference = 14.31818;
    inputs.adblDesired = {50, 0, 33, 7};
    for (auto _ : state) {
        search.SetPLLValues(14.31818);
        search.FindClockSources(true, inputs);
        benchmark::DoNotOptimize(search.mstrSources.size());
    }
    state.counters["shared"] = search.mintCommonVCOCalls;
    state.counters["cases"] = static_cast<double>(search.mstrSources.size());
}
BENCHMARK(BM_QX5140SearchWorstCase)->Unit(benchmark::kMillisecond);

void BM_QX5140CalculatePressWorstCase(benchmark::State& state) {
    HeadlessPlatform platform;
    Application app(platform);
    app.Main().MDIForm_Load("");
    frmDevice& select = app.DeviceForm();
    select.CreateNew(true);
    select.OptionFor("QX5140")->SetValue(true);
    select.cmdOK_Click();
    auto& form = dynamic_cast<frmQX5140&>(*app.Document());
    for (auto [field, text] : {std::pair{&form.txtClkA[0], "50"}, std::pair{&form.txtClkB, "33"},
                               std::pair{&form.txtClkC, "7"}}) {
        form.SetFocusTo(field);
        field->SetText(text);
        form.SetFocusTo(nullptr);
    }
    for (auto _ : state) {
        form.cmdCalculate.SetBackColor(colors::Yellow);
        form.cmdCalculate_Click();
        benchmark::DoNotOptimize(form.lblCaseMessage.Caption());
    }
    state.counters["shared"] = form.Search().mintCommonVCOCalls;
    state.counters["cases"] = static_cast<double>(form.mstrSources().size());
}
BENCHMARK(BM_QX5140CalculatePressWorstCase)->Unit(benchmark::kMillisecond);

}  // namespace
