#pragma once
#include <memory>
#include <set>
#include <string>

#include "app/Configurator.hpp"
#include "platform/HeadlessPlatform.hpp"
#include "shell/Application.hpp"

namespace pendulon::test {

// A small document window for the shell's tests: a few named fields, a checksum computed from
// them, an entry file of three tagged lines, and a FillForm that reads those lines back.
class TestConfigurator : public Configurator {
  public:
    explicit TestConfigurator(Application& app);

    TextField txtNote;

    std::string Device() const override;
    void SetDevice(const std::string& device) override;
    std::string Checksum() override;
    bool FillForm(clsEntryFile& data, const std::string& path) override;
    bool Save() override;
    bool MakeEntryFile(const std::string& path) override;
    bool MakeEPROMVector(const std::string&, bool) override { return false; }
    std::string PinName(int) const override { return {}; }
    void CalculatePower() override {}
    void DisplayAllActuals() override {}
    void cmdApplyLimits_Click() override {}
    void cmdCalculate_Click() override;
    void Form_Load() override;
    void Form_Unload() override;

    // The text of the entry file of the fields as they stand.
    std::string EntryText() const;

    // Set by a test to refuse the next load from a file.
    bool refuseFill = false;
    int* unloadCounter = nullptr;
};

// An application on the headless platform whose device table builds TestConfigurator for
// the devices named.
struct ShellHarness {
    explicit ShellHarness(std::set<std::string> devices = {"QX6105A", "QX4860", "QX7311"});
    HeadlessPlatform platform;
    Application app{platform};
    std::set<std::string> built;
    int unloads = 0;
    bool refuseNextFill = false;

    TestConfigurator* Doc() const;
    // Start-up with no command line (shows the splash) and a fresh settings store.
    void Start(const std::string& commandLine = "");
    // File, New; the device window answers OK with the option of device.
    void NewDocument(const std::string& device);
    // Makes the document calculated and edits txtNote so that the state changes.
    void Edit(const std::string& note);
    // Queues the summary window's OK.
    void QueueSummaryOK();
    // Messages whose text contains the given text.
    int CountMessages(const std::string& text) const;
};

// Writes a small entry file of a device and returns its path.
std::string WriteEntry(const std::string& folder, const std::string& name,
                       const std::string& partDescription, double frequency, int value);

}  // namespace pendulon::test
