#pragma once
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "core/Numbers.hpp"
#include "core/clsPLL.hpp"
#include "core/clsReference.hpp"
#include "graphics/clsGraphics.hpp"

namespace pendulon {

// An object a window owns, made on first use.
template <class T, class... Args>
T& MadeOnFirstUse(std::unique_ptr<T>& object, Args&&... args) {
    if (!object)
        object = std::make_unique<T>(std::forward<Args>(args)...);
    return *object;
}

// What every device window keeps of its device: its loops, the reference, the die (DieClass),
// the device rules (RulesClass), the drawing and the entry-file object (EntryFileClass), each
// made on first use; the exchange of the user limits between the die, the reference and the
// limit fields; and the entry-file operations, the same on every device.
template <class DieClass, class RulesClass, class EntryFileClass>
class DeviceWindow : public Configurator {
  public:
    DeviceWindow(AppServices& app, std::string formName)
        : Configurator(app, std::move(formName)) {}

    clsReference& Reference() { return MadeOnFirstUse(mclsReference, App().Errors()); }
    DieClass& Die() { return MadeOnFirstUse(mclsDie, App().Errors()); }
    RulesClass& DeviceRules() { return MadeOnFirstUse(mclsDevice, App().Errors()); }
    clsGraphics& Graphics() {
        return MadeOnFirstUse(mclsGraphics, App().Errors(), App().gintTwipsPerPixelX,
                              App().gintTwipsPerPixelY);
    }
    // The window's entry-file object, told which window it serves. The window tells it when
    // its device is set; a window may instead tell it on first use.
    virtual EntryFileClass& EntryFile() { return EntryFileObject(); }

    // Configurator
    std::string Checksum() override { return IntegerText(EntryFile().Checksum()); }
    const clsEntryFile* MadeEntryImage() override {
        EntryFile().MakeEntryFile();
        return &EntryFile().Entry();
    }
    bool MakeEntryFile(const std::string& path) override {
        EntryFile().MakeEntryFile();
        return EntryFile().WriteEntryFile(path);
    }
    bool MakeEPROMVector(const std::string& path, bool fromForm) override {
        return EntryFile().MakeEPROMVector(path, fromForm);
    }

  protected:
    // The most loops a die has.
    static constexpr size_t kMaxLoops = 3;
    // Loop i of the die (0 for a die of one loop).
    clsPLL& Loop(size_t i) { return MadeOnFirstUse(mclsLoops.at(i), App().Errors()); }
    // The counter and VCO limits of the die at the present voltage, on a die of one loop.
    void InitializeOneLoop() {
        clsPLL& pll = Loop(0);
        DieClass& die = Die();
        pll.mdblMaxP = die.MaximumP();
        pll.mdblMaxQ = die.MaximumQ();
        pll.mdblMinP = die.MinimumP();
        pll.mdblMinQ = die.MinimumQ();
        pll.mdblVCOMax = die.MaximumPLLVoltage();
        pll.mdblVCOMin = die.MinimumPLLVoltage();
    }
    // The entry-file object as it is, made on first use.
    EntryFileClass& EntryFileObject() { return MadeOnFirstUse(mclsEntryFile, App().EntryHost()); }
    bool HasEntryFile() const { return mclsEntryFile != nullptr; }

    double DieVoltage() const override { return mclsDie ? mclsDie->mdblVoltage : 5.0; }
    void SetDieVoltage(double voltage) override { Die().mdblVoltage = voltage; }
    void GetCurrentPLLLimits() override {
        DeviceRules().GetCurrentPLLLimits(*this, Reference(), Die());
    }
    void SetNewPLLLimits() override { DeviceRules().SetNewPLLLimits(*this, Reference(), Die()); }
    bool LimitsEqualDefaults() override {
        std::vector<double> currentMin(DieClass::kElements), currentMax(DieClass::kElements);
        std::vector<double> defaultMin(DieClass::kElements), defaultMax(DieClass::kElements);
        Die().GetCurrentLimits(currentMin, currentMax);
        Die().GetDefaultLimits(defaultMin, defaultMax);
        return currentMin == defaultMin && currentMax == defaultMax;
    }
    double ReferenceMinimum() const override {
        return mclsReference ? mclsReference->Minimum() : 1;
    }
    double ReferenceMaximum() const override {
        return mclsReference ? mclsReference->Maximum() : 30;
    }
    // The reference if it has been made, else null.
    const clsReference* MadeReference() const { return mclsReference.get(); }

    // Releases the device objects: the loops, the reference, the die, the rules, the drawing and
    // the entry-file object.
    void ReleaseObjects() override {
        for (auto& loop : mclsLoops) loop.reset();
        mclsReference.reset();
        mclsDie.reset();
        mclsDevice.reset();
        mclsGraphics.reset();
        mclsEntryFile.reset();
    }

  private:
    std::array<std::unique_ptr<clsPLL>, kMaxLoops> mclsLoops;
    std::unique_ptr<clsReference> mclsReference;
    std::unique_ptr<DieClass> mclsDie;
    std::unique_ptr<RulesClass> mclsDevice;
    std::unique_ptr<clsGraphics> mclsGraphics;
    std::unique_ptr<EntryFileClass> mclsEntryFile;
};

}  // namespace pendulon
