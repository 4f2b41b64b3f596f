#pragma once
#include <string>

#include "platform/CheckBox.hpp"
#include "platform/ControlArray.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/OptionButton.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon::test {

// Windows that carry exactly the fields the configuration document reads, by their names.
// Lists are filled with one entry and that entry selected, as a calculated window has them.
inline void Select(ListField& list, const std::string& entry) {
    list.Clear();
    list.AddItem(entry);
    list.SetListIndex(0);
}

// The two states of the example QX6105A document: 100 and 75 MHz, CLKA from the PLL, CLKB
// from PLL/3, CLKC from the reference of 25 MHz, with the actual entries selected.
template <class Form>
void SetFrequencySelectExample(Form& form) {
    form.txtPLL[0].SetText("100");
    form.txtPLL[1].SetText("75");
    Select(form.cboClkDiv[0], "PLL");
    Select(form.cboClkDiv[1], "PLL/3");
    Select(form.cboClkDiv[2], "Ref");
    Select(form.cboActual[0], "100.00000    PPM:0");
    Select(form.cboActual[1], "33.33333    PPM:-1");
    Select(form.cboActual[2], "25.00000    PPM:0");
    Select(form.cboActual[3], "75.00000    PPM:0");
    Select(form.cboActual[4], "25.00100    PPM:40");
    Select(form.cboActual[5], "25.00000    PPM:0");
}

class Fake6105AForm : public Window {
  public:
    Fake6105AForm() : Window("frmQX6105A"), txtPLL(2), cboClkDiv(3), cboActual(6) {
        optFS.SetGroup("Pin8");
        optOE.SetGroup("Pin8");
        opt5V.SetGroup("Voltage");
        opt3V.SetGroup("Voltage");
        Register("txtFilePath", txtFilePath);
        Register("optFS", optFS);
        Register("optOE", optOE);
        Register("opt5V", opt5V);
        Register("opt3V", opt3V);
        Register("cboFRef", cboFRef);
        RegisterArray("txtPLL", txtPLL);
        RegisterArray("cboClkDiv", cboClkDiv);
        RegisterArray("cboActual", cboActual);
        Register("chkSmoothSlew", chkSmoothSlew);
    }

    TextField txtFilePath;
    OptionButton optFS, optOE, opt5V, opt3V;
    ListField cboFRef;
    ControlArray<TextField> txtPLL;
    ControlArray<ListField> cboClkDiv;
    ControlArray<ListField> cboActual;
    CheckBox chkSmoothSlew;
};

class Fake4860Form : public Window {
  public:
    Fake4860Form()
        : Window("frmQX4860"),
          txtPLL(16),
          lblDesiredClkA(16),
          lblDesiredRefClk(16),
          cboActualClkA(16),
          cboActualRefClk(16) {
        opt8Pin.SetGroup("Package");
        opt14Pin.SetGroup("Package");
        opt5V.SetGroup("Voltage");
        opt3V.SetGroup("Voltage");
        Register("txtFilePath", txtFilePath);
        Register("opt8Pin", opt8Pin);
        Register("opt14Pin", opt14Pin);
        Register("opt5V", opt5V);
        Register("opt3V", opt3V);
        Register("cboFRef", cboFRef);
        Register("chkSmoothSlew", chkSmoothSlew);
        Register("chkPLLStop", chkPLLStop);
        Register("chkPLLAndOscillatorStop", chkPLLAndOscillatorStop);
        RegisterArray("txtPLL", txtPLL);
        RegisterArray("lblDesiredClkA", lblDesiredClkA);
        RegisterArray("cboActualClkA", cboActualClkA);
        RegisterArray("lblDesiredRefClk", lblDesiredRefClk);
        RegisterArray("cboActualRefClk", cboActualRefClk);
    }

    TextField txtFilePath;
    OptionButton opt8Pin, opt14Pin, opt5V, opt3V;
    ListField cboFRef;
    CheckBox chkSmoothSlew, chkPLLStop, chkPLLAndOscillatorStop;
    ControlArray<TextField> txtPLL;
    ControlArray<Label> lblDesiredClkA;
    ControlArray<Label> lblDesiredRefClk;
    ControlArray<ListField> cboActualClkA;
    ControlArray<ListField> cboActualRefClk;
};

// Only the option fields of the other families, for their option lines and part numbers.
class FakeOptionsForm : public Window {
  public:
    FakeOptionsForm() : Window("frmOther") {
        opt5V.SetGroup("Voltage");
        opt3V.SetGroup("Voltage");
        optSOIC.SetGroup("Package");
        optDIP.SetGroup("Package");
        optPowerDown.SetGroup("Pin");
        optOE.SetGroup("Pin");
        Register("opt5V", opt5V);
        Register("opt3V", opt3V);
        Register("optSOIC", optSOIC);
        Register("optDIP", optDIP);
        Register("chkOffCPLL", chkOffCPLL);
        Register("chkSuspendCPLL", chkSuspendCPLL);
        Register("txtSPLL", txtSPLL);
        Register("chkSuspendSPLL", chkSuspendSPLL);
        Register("txtUPLL", txtUPLL);
        Register("chkSuspendUPLL", chkSuspendUPLL);
        Register("txtPLL", txtPLL);
        Register("optPowerDown", optPowerDown);
        Register("optOE", optOE);
        Register("chkSynchronous", chkSynchronous);
    }

    OptionButton opt5V, opt3V, optSOIC, optDIP, optPowerDown, optOE;
    CheckBox chkOffCPLL, chkSuspendCPLL, chkSuspendSPLL, chkSuspendUPLL, chkSynchronous;
    TextField txtSPLL, txtUPLL, txtPLL;
};

}  // namespace pendulon::test
