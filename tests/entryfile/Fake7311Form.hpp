#pragma once
#include <memory>
#include <string>

#include "FakeForms.hpp"
#include "core/Numbers.hpp"
#include "entryfile/clsEntryFile7311.hpp"
#include "support/Fields7311.hpp"

namespace pendulon::test {

// A QX7311 family window with just the fields its entry file reads, registered by name, and its
// own entry-file object, as the real window holds one. The calls the entry file makes on the
// window are counted.
class Fake7311Form : public Configurator, public Fields7311 {
  public:
    Fake7311Form(Application& app, std::string dev)
        : Configurator(app, "frmQX7311"), device(std::move(dev)), mclsEntryFile(app) {
        opt5V.SetGroup("Voltage");
        opt3V.SetGroup("Voltage");
        Register("txtFilePath", txtFilePath);
        Register("cboFRef", cboFRef);
        Register("opt5V", opt5V);
        Register("opt3V", opt3V);
        RegisterAll([this](const std::string& name, Field& field) { Register(name, field); });
        Register("cmdApplyLimits", cmdApplyLimits);
        FillOutputLists();
        cboFRef.SetAllowsFreeText(true);
        for (const char* ref : {"14.31818 MHz", "20.00000 MHz", "25.00000 MHz"})
            cboFRef.AddItem(ref);
        mclsEntryFile.SetForm(*this);
    }

    std::string Device() const override { return device; }
    void SetDevice(const std::string& value) override { device = value; }
    std::string Checksum() override { return IntegerText(mclsEntryFile.Checksum()); }
    bool MakeEntryFile(const std::string& path) override {
        mclsEntryFile.MakeEntryFile();
        return mclsEntryFile.WriteEntryFile(path);
    }
    bool MakeEPROMVector(const std::string& path, bool fromForm) override {
        return mclsEntryFile.MakeEPROMVector(path, fromForm);
    }
    std::string PinName(int) const override { return {}; }
    void CalculatePower() override { ++powerCalls; }
    void DisplayAllActuals() override { ++actualsCalls; }
    void CheckPLLLimits() override { ++limitChecks; }
    void cmdApplyLimits_Click() override { ++applyLimitsClicks; }
    void cmdCalculate_Click() override {}
    void Form_Load() override {}

  protected:
    // As the real window: the shared load from a file runs the family's form fill.
    void FillFromEntryFile(clsEntryFile& data) override { mclsEntryFile.Fill7311Form(data); }

  public:
    std::string device;
    clsEntryFile7311 mclsEntryFile;
    int powerCalls = 0;
    int actualsCalls = 0;
    int limitChecks = 0;
    int applyLimitsClicks = 0;
};

}  // namespace pendulon::test
