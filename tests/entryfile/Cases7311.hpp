#pragma once
#include <memory>
#include <string>

#include "Fake7311Form.hpp"

namespace pendulon::test {

// The window settings of each QX7311 family golden case; tests/data/make_7311_goldens.py lists
// the image these settings must give. The data lists hold what a Calculate would have put
// there: a rows at "Off" holds the loop's minima with a VCO of 0.
inline void SetData(ListField& list, const std::string& text) {
    SetOnlyEntry(list, text);
}

inline void SetRows(Fake7311Form& f, const char* const (&rows)[8], const char* const (&data)[8]) {
    for (int n = 0; n < 8; ++n) {
        f.txtCPLL[n].SetText(rows[n]);
        SetData(f.cboCPLLData[n], data[n]);
    }
}

inline std::unique_ptr<Fake7311Form> Case7311At5V(Application& app) {
    auto f = std::make_unique<Fake7311Form>(app, "QX7311");
    f->opt5V.SetValue(true);
    Fields7311::Choose(f->cboFRef, "14.31818 MHz");
    SetRows(*f, {"66.6", "100", "Off", "75", "50", "133.3", "Off", "90"},
            {"133.181818 P:93 Q:20", "200.454520 P:126 Q:18", "0.000000 P:5 Q:2",
             "150.000000 P:110 Q:21", "100.000000 P:45 Q:13", "266.600000 P:214 Q:23",
             "0.000000 P:5 Q:2", "180.000000 P:88 Q:14"});
    f->txtSPLL.SetText("48");
    SetData(f->cboSPLLData, "96.000000 P:57 Q:17");
    f->txtUPLL.SetText("Off");
    SetData(f->cboUPLLData, "0.000000 P:5 Q:2");
    Fields7311::Choose(f->cboCPU, "CPLL/2");
    Fields7311::Choose(f->cboClk[0], "SPLL/2");
    Fields7311::Choose(f->cboClk[1], "Ref");
    Fields7311::Choose(f->cboClk[2], "CPLL/4");
    Fields7311::Choose(f->cboClk[3], "Off");
    f->lblDesiredClk[0].SetCaption(" 24.00000");
    f->lblDesiredClk[1].SetCaption(" 14.31818");
    f->lblDesiredClk[2].SetCaption(" CPLL/4");
    f->lblDesiredClk[3].SetCaption(" Off");
    Fields7311::Choose(f->cboClkF, "SPLL/3");
    f->lblDesiredClkF.SetCaption(" 16.00000");
    Fields7311::Choose(f->cboXBuff, "Ref");
    return f;
}

inline std::unique_ptr<Fake7311Form> Case7311FAt3V(Application& app) {
    auto f = std::make_unique<Fake7311Form>(app, "QX7311F");
    f->opt3V.SetValue(true);
    f->chkShutdown.SetValue(1);
    Fields7311::Choose(f->cboFRef, "25.00000 MHz");
    SetRows(
        *f, {"70", "50", "40", "33.33333", "Off", "Off", "Off", "Off"},
        {"140.000000 P:14 Q:5", "100.000000 P:6 Q:3", "80.000000 P:8 Q:5", "66.666667 P:20 Q:15",
         "0.000000 P:5 Q:2", "0.000000 P:5 Q:2", "0.000000 P:5 Q:2", "0.000000 P:5 Q:2"});
    // Above the 66.66667 MHz of the F die at 3.3 V.
    f->txtCPLL[0].SetForeColor(colors::Red);
    f->txtSPLL.SetText("Off");
    SetData(f->cboSPLLData, "0.000000 P:5 Q:2");
    f->txtUPLL.SetText("24");
    SetData(f->cboUPLLData, "48.000000 P:24 Q:25");
    Fields7311::Choose(f->cboCPU, "CPLL");
    Fields7311::Choose(f->cboClk[0], "UPLL");
    Fields7311::Choose(f->cboClk[1], "UPLL/2");
    Fields7311::Choose(f->cboClk[2], "Ref/8");
    Fields7311::Choose(f->cboClk[3], "Ref/3");
    f->lblDesiredClk[0].SetCaption(" 24.00000");
    f->lblDesiredClk[1].SetCaption(" 12.00000");
    f->lblDesiredClk[2].SetCaption(" 3.12500");
    f->lblDesiredClk[3].SetCaption(" 8.33333");
    Fields7311::Choose(f->cboClkF, "Off");
    f->lblDesiredClkF.SetCaption(" Off");
    Fields7311::Choose(f->cboXBuff, "Off");
    return f;
}

inline std::unique_ptr<Fake7311Form> Case7312At5V(Application& app) {
    auto f = std::make_unique<Fake7311Form>(app, "QX7312");
    f->opt5V.SetValue(true);
    f->cboFRef.SetText("27");
    SetRows(*f, {"100", "66.66", "50", "40", "33.33", "25", "20", "80"},
            {"200.000000 P:100 Q:27", "133.200000 P:74 Q:30", "100.000000 P:50 Q:27",
             "80.000000 P:40 Q:27", "66.600000 P:37 Q:30", "50.000000 P:25 Q:27",
             "40.000000 P:20 Q:27", "160.000000 P:80 Q:27"});
    f->txtSPLL.SetText("66");
    SetData(f->cboSPLLData, "132.000000 P:22 Q:9");
    f->txtUPLL.SetText("48");
    SetData(f->cboUPLLData, "96.000000 P:16 Q:9");
    Fields7311::Choose(f->cboCPU, "CPLL/4");
    Fields7311::Choose(f->cboClk[0], "SPLL/12");
    Fields7311::Choose(f->cboClk[1], "SPLL/13");
    Fields7311::Choose(f->cboClk[2], "UPLL/8");
    Fields7311::Choose(f->cboClk[3], "SPLL/104");
    f->lblDesiredClk[0].SetCaption(" 5.50000");
    f->lblDesiredClk[1].SetCaption(" 5.07692");
    f->lblDesiredClk[2].SetCaption(" 6.00000");
    f->lblDesiredClk[3].SetCaption(" 0.63462");
    // The QX7312 has no CLKF: the window keeps it at "Off".
    Fields7311::Choose(f->cboClkF, "Off");
    f->lblDesiredClkF.SetCaption(" Off");
    Fields7311::Choose(f->cboXBuff, "Ref");
    return f;
}

inline std::unique_ptr<Fake7311Form> Case7312ISuspend(Application& app) {
    auto f = std::make_unique<Fake7311Form>(app, "QX7312I");
    f->opt3V.SetValue(true);
    Fields7311::Choose(f->cboFRef, "14.31818 MHz");
    f->chkSuspend.SetValue(1);
    f->chkSuspendCPLL.SetValue(1);
    // Suspending the CPLL forces the four rows with S2 = 0 to "Off".
    SetRows(*f, {"Off", "Off", "Off", "Off", "60", "50", "40", "30"},
            {"0.000000 P:5 Q:2", "0.000000 P:5 Q:2", "0.000000 P:5 Q:2", "0.000000 P:5 Q:2",
             "120.000000 P:88 Q:21", "100.000000 P:80 Q:23", "80.000000 P:53 Q:19",
             "60.000000 P:44 Q:21"});
    f->txtSPLL.SetText("33.33333");
    SetData(f->cboSPLLData, "66.666660 P:100 Q:43");
    f->txtUPLL.SetText("12");
    SetData(f->cboUPLLData, "24.000000 P:41 Q:49");
    Fields7311::Choose(f->cboCPU, "CPLL");
    Fields7311::Choose(f->cboClk[0], "CPLL/2");
    Fields7311::Choose(f->cboClk[1], "SPLL/5");
    Fields7311::Choose(f->cboClk[2], "Ref/2");
    Fields7311::Choose(f->cboClk[3], "UPLL/4");
    f->lblDesiredClk[0].SetCaption(" CPLL/2");
    f->lblDesiredClk[1].SetCaption(" 6.66667");
    f->lblDesiredClk[2].SetCaption(" 7.15909");
    f->lblDesiredClk[3].SetCaption(" 3.00000");
    Fields7311::Choose(f->cboClkF, "Off");
    f->lblDesiredClkF.SetCaption(" Off");
    // With Suspend the XBUF list holds "Ref" only.
    f->cboXBuff.Clear();
    f->cboXBuff.AddItem("Ref");
    f->cboXBuff.SetListIndex(0);
    f->chkSusCPU.SetValue(1);
    f->chkSusClk[0].SetValue(1);
    f->chkSusClk[2].SetValue(1);
    f->chkSusXbuff.SetValue(1);
    f->chkSuspendSPLL.SetValue(1);
    return f;
}

inline std::unique_ptr<Fake7311Form> MakeCase7311(Application& app, const std::string& name) {
    if (name == "QX7311_5V")
        return Case7311At5V(app);
    if (name == "QX7311F_3V")
        return Case7311FAt3V(app);
    if (name == "QX7312_5V")
        return Case7312At5V(app);
    if (name == "QX7312I_Suspend")
        return Case7312ISuspend(app);
    return nullptr;
}

}  // namespace pendulon::test
