// A whole Calculate of a QX7311 document, as the button runs it: the search of all eight CPLL
// selections, SPLL and UPLL, the actual values of every output, and the power figures. Every
// CPLL row, both other loops and every output are in use, at 5 V with a 14.31818 MHz reference.
#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>

#include "configurators/frmQX7311.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"

namespace {

using namespace pendulon;

constexpr std::array<const char*, 8> kCPU = {"33.33333", "40", "50",   "60",
                                             "66.66667", "75", "83.3", "100"};

void Pick(ListField& list, const std::string& text) {
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.List(i) == text)
            list.SetListIndex(i);
}

void BM_QX7311CalculateAllLoops(benchmark::State& state) {
    HeadlessPlatform platform;
    auto app = std::make_unique<Application>(platform);
    app->Main().MDIForm_Load("");
    frmDevice& select = app->DeviceForm();
    select.CreateNew(true);
    select.OptionFor("QX7311")->SetValue(true);
    select.cmdOK_Click();
    auto* form = dynamic_cast<frmQX7311*>(app->Document());
    if (form == nullptr) {
        state.SkipWithError("no QX7311 document");
        return;
    }
    for (int i = 0; i < 8; ++i) form->txtCPLL[i].SetText(kCPU[static_cast<size_t>(i)]);
    form->txtSPLL.SetText("48");
    form->txtUPLL.SetText("24.576");
    Pick(form->cboCPU, "CPLL/2");
    Pick(form->cboClk[0], "SPLL/4");
    Pick(form->cboClk[1], "UPLL/2");
    Pick(form->cboClk[2], "CPLL/4");
    Pick(form->cboClk[3], "Ref/3");
    Pick(form->cboClkF, "SPLL/3");
    const int errorsBefore = app->Errors().Count();
    for (auto _ : state) {
        form->cmdCalculate_Click();
        benchmark::DoNotOptimize(form->cboCPLLData[7].ListCount());
    }
    if (app->Errors().Count() != errorsBefore)
        state.SkipWithError("Calculate reported an error");
    for (int i = 0; i < 8; ++i)
        if (form->cboCPLL[i].Text().find("PPM:") == std::string::npos)
            state.SkipWithError("a CPLL row has no solution");
}

BENCHMARK(BM_QX7311CalculateAllLoops)->Unit(benchmark::kMicrosecond);

}  // namespace
