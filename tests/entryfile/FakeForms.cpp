#include "FakeForms.hpp"

#include "shell/frmSummary.hpp"

namespace pendulon::test {

AppFixture::AppFixture() {
    platform.SetNow(DateTime{2026, 11, 21, 10, 0, 0});
    app.gstrTitle = "Pendulon(tm) 3.71";
    app.gstrBuild = "Build #: 3.71.010";
    app.Summary().txtComments.SetText("test comment");
    app.Summary().txtCustomer.SetText("Acme");
    app.Summary().txtFAE.SetText("Ann");
    app.Summary().txtRevision.SetText("01");
}

void FillDividerList(ListField& list) {
    list.Clear();
    for (int n = 1; n <= 8; ++n) {
        std::string item(1, '/');
        item += std::to_string(n);
        list.AddItem(item);
    }
    list.AddItem("Off");
    list.SetListIndex(0);
}

void SetOnlyEntry(ListField& list, const std::string& text) {
    list.Clear();
    list.AddItem(text);
    list.SetListIndex(0);
}

FakeFormBase::FakeFormBase(Application& app, std::string name, std::string dev, int plls)
    : Configurator(app, std::move(name)), device(std::move(dev)), txtPLL(plls), cboPLLData(plls) {
    opt5V.SetGroup("Voltage");
    opt3V.SetGroup("Voltage");
    Register("opt5V", opt5V);
    Register("opt3V", opt3V);
    Register("cboFRef", cboFRef);
    RegisterArray("txtPLL", txtPLL);
    RegisterArray("cboPLLData", cboPLLData);
    Register("chkSmoothSlew", chkSmoothSlew);
    Register("cmdApplyLimits", cmdApplyLimits);
}

bool FakeFormBase::PreScale(int index) const {
    auto it = prescale.find(index);
    return it != prescale.end() && it->second;
}

Fake4860Form::Fake4860Form(Application& app, std::string dev)
    : FakeFormBase(app, "frmQX4860", std::move(dev), 16) {
    opt14Pin.SetGroup("Pins");
    opt8Pin.SetGroup("Pins");
    Register("opt14Pin", opt14Pin);
    Register("opt8Pin", opt8Pin);
    Register("cboClkADiv", cboClkADiv);
    Register("cboRefClkDiv", cboRefClkDiv);
    Register("chkOEClockA", chkOEClockA);
    Register("chkOEReference", chkOEReference);
    Register("chkPowerDown", chkPowerDown);
    Register("chkPLLStop", chkPLLStop);
    Register("chkPLLAndOscillatorStop", chkPLLAndOscillatorStop);
    FillDividerList(cboClkADiv);
    FillDividerList(cboRefClkDiv);
}

Fake6105AForm::Fake6105AForm(Application& app, std::string dev)
    : FakeFormBase(app, "frmQX6105A", std::move(dev), 2) {
    optFS.SetGroup("Mode");
    optOE.SetGroup("Mode");
    Register("optFS", optFS);
    Register("optOE", optOE);
    RegisterArray("cboClkDiv", cboClkDiv);
    for (auto& list : cboClkDiv) FillDividerList(*list);
}

}  // namespace pendulon::test
