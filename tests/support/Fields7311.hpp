#pragma once
#include <functional>
#include <string>

#include "platform/CheckBox.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/TextField.hpp"

namespace pendulon::test {

// The fields of the QX7311 family window that the entry file and the document read, with the
// names and kinds of the window, and its output lists filled as the window fills them. A fake
// window derives from it and registers the fields through its own registration.
struct Fields7311 {
    CheckBox chkSuspend, chkShutdown, chkOffCPLL, chkSuspendCPLL, chkSuspendSPLL, chkSuspendUPLL;
    ControlArray<TextField> txtCPLL{8};
    ControlArray<ListField> cboCPLL{8};
    ControlArray<ListField> cboCPLLData{8};
    TextField txtSPLL, txtUPLL;
    ListField cboSPLL, cboUPLL, cboSPLLData, cboUPLLData;
    ListField cboCPU, cboClkF, cboXBuff;
    ControlArray<ListField> cboClk{4};
    Label lblDesiredCPU, lblDesiredClkF, lblDesiredXBuff, lblDesired32K;
    ControlArray<Label> lblDesiredClk{4};
    ListField cboActualCPU, cboActualClkF, cboActualXBuff;
    ControlArray<ListField> cboActualClk{4};
    CheckBox chkSusCPU, chkSusClkF, chkSusXbuff;
    ControlArray<CheckBox> chkSusClk{4};

    using Registrar = std::function<void(const std::string&, Field&)>;

    void RegisterAll(const Registrar& reg) {
        auto array = [&reg](const std::string& name, auto& fields) {
            for (int i = 0; i < fields.Count(); ++i)
                reg(name + "(" + std::to_string(i) + ")", fields[i]);
        };
        reg("chkSuspend", chkSuspend);
        reg("chkShutdown", chkShutdown);
        array("txtCPLL", txtCPLL);
        array("cboCPLL", cboCPLL);
        reg("chkOffCPLL", chkOffCPLL);
        reg("chkSuspendCPLL", chkSuspendCPLL);
        reg("txtSPLL", txtSPLL);
        reg("txtUPLL", txtUPLL);
        reg("cboSPLL", cboSPLL);
        reg("cboUPLL", cboUPLL);
        reg("chkSuspendSPLL", chkSuspendSPLL);
        reg("chkSuspendUPLL", chkSuspendUPLL);
        array("cboCPLLData", cboCPLLData);
        reg("cboSPLLData", cboSPLLData);
        reg("cboUPLLData", cboUPLLData);
        reg("cboCPU", cboCPU);
        array("cboClk", cboClk);
        reg("cboClkF", cboClkF);
        reg("cboXBuff", cboXBuff);
        reg("lblDesiredCPU", lblDesiredCPU);
        array("lblDesiredClk", lblDesiredClk);
        reg("lblDesiredClkF", lblDesiredClkF);
        reg("lblDesiredXBuff", lblDesiredXBuff);
        reg("lblDesired32K", lblDesired32K);
        reg("cboActualCPU", cboActualCPU);
        array("cboActualClk", cboActualClk);
        reg("cboActualClkF", cboActualClkF);
        reg("cboActualXBuff", cboActualXBuff);
        reg("chkSusCPU", chkSusCPU);
        array("chkSusClk", chkSusClk);
        reg("chkSusClkF", chkSusClkF);
        reg("chkSusXbuff", chkSusXbuff);
    }

    // The output lists with the window's entries, each on its first entry.
    void FillOutputLists() {
        auto fill = [](ListField& list, std::initializer_list<const char*> entries) {
            list.Clear();
            for (const char* e : entries) list.AddItem(e);
            list.SetListIndex(0);
        };
        fill(cboCPU, {"CPLL", "CPLL/2", "CPLL/4", "Off"});
        for (int k = 0; k < 4; ++k)
            fill(cboClk[k], {"Ref",     "Ref/2",    "Ref/4",   k == 3 ? "Ref/3" : "Ref/8",
                             "CPLL",    "CPLL/2",   "CPLL/4",  "CPLL/8",
                             "UPLL",    "UPLL/2",   "UPLL/4",  "UPLL/8",
                             "SPLL",    "SPLL/2",   "SPLL/3",  "SPLL/4",
                             "SPLL/5",  "SPLL/6",   "SPLL/8",  "SPLL/10",
                             "SPLL/12", "SPLL/13",  "SPLL/20", "SPLL/24",
                             "SPLL/26", "SPLL/40",  "SPLL/48", "SPLL/52",
                             "SPLL/96", "SPLL/104", "Off"});
        fill(cboClkF, {"SPLL/2", "SPLL/3", "SPLL/4", "Off"});
        fill(cboXBuff, {"Ref", "Off"});
        lblDesired32K.SetCaption(" 32.768 kHz");
        for (int n = 0; n < 8; ++n) txtCPLL[n].SetText("Off");
        txtSPLL.SetText("Off");
        txtUPLL.SetText("Off");
    }

    // Selects the entry with this text; false when the list has none.
    static bool Choose(ListField& list, const std::string& text) {
        for (int i = 0; i < list.ListCount(); ++i)
            if (list.List(i) == text)
                return list.SetListIndex(i);
        return false;
    }
};

}  // namespace pendulon::test
