#include "planner/cls4860FamilyPlanner.hpp"

#include "configurators/frmQX4860.hpp"
#include "core/cls4860Die.hpp"

namespace pendulon {

namespace {

clsOneLoopPlanner::Layout LayoutOf(const std::string& device) {
    clsOneLoopPlanner::Layout layout;
    if (device.rfind("QX4860", 0) == 0) {
        layout.aPins = {{"CLKA", "cboClkADiv", "lblDesiredClkA(0)", "cboActualClkA(0)"},
                        {"REFCLK", "cboRefClkDiv", "lblDesiredRefClk(0)", "cboActualRefClk(0)"}};
    } else {
        const char* const names[] = {"CLKA", "CLKB", "CLKC"};
        for (int k = 0; k < 3; ++k) {
            const std::string index = "(" + std::to_string(k).append(")");
            layout.aPins.push_back(
                {names[k], "cboClkDiv" + index, "lblDesired" + index, "cboActual" + index});
        }
    }
    layout.strLoopField = "txtPLL(0)";
    layout.strDataList = "cboPLLData(0)";
    return layout;
}

}  // namespace

cls4860FamilyPlanner::cls4860FamilyPlanner(const PlannerHost& host, const std::string& device)
    : clsOneLoopPlanner(host, device, LayoutOf(device)) {}

void cls4860FamilyPlanner::OutputRange(Configurator& document, double& minimum,
                                       double& maximum) const {
    auto& form = static_cast<frm4860Family&>(document);
    minimum = frm4860Family::kOutputMinimum;
    maximum = form.OutputMaximum();
}

std::vector<PlanAction> cls4860FamilyPlanner::PackageActions(Configurator& document,
                                                             const clsPlan& plan) const {
    auto* form = dynamic_cast<frmQX4860*>(&document);
    if (form == nullptr)
        return {};
    // The smaller package, unless the plan asks for the larger one.
    OptionButton& package = plan.intPins == 14 ? form->opt14Pin : form->opt8Pin;
    if (package.Value())
        return {};
    return {PlanAction::Click(package.Name())};
}

void cls4860FamilyPlanner::LoopRange(Configurator& document, double& minimum,
                                     double& maximum) const {
    cls4860Die& die = static_cast<frm4860Family&>(document).Die();
    minimum = die.MinimumPLLVoltage();
    maximum = die.MaximumPLLVoltage();
}

clsPLL& cls4860FamilyPlanner::Loop(Configurator& document) const {
    return static_cast<frm4860Family&>(document).PLL();
}

}  // namespace pendulon
