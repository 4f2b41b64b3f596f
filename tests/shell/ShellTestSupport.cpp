#include "ShellTestSupport.hpp"

#include <filesystem>

#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "platform/TextFile.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmMain.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon::test {

TestConfigurator::TestConfigurator(Application& app) : Configurator(app, "frmTest") {
    Register("txtFilePath", txtFilePath);
    Register("lblDevice", lblDevice);
    Register("cboFRef", cboFRef);
    Register("txtNote", txtNote);
    Register("cmdCalculate", cmdCalculate);
    Register("picPower", picPower);
    Register("picDebugWindow", picDebugWindow);
    txtNote.OnChange = [this] {
        App().gblnNeedsCalculate = true;
        cmdCalculate.SetBackColor(colors::Yellow);
    };
}

std::string TestConfigurator::Device() const {
    return App().DeviceForm().mstrCurrentDevice;
}

void TestConfigurator::SetDevice(const std::string& device) {
    lblDevice.SetCaption(device);
    if (OptionButton* option = App().DeviceForm().OptionFor(device))
        option->SetValue(true);
}

std::string TestConfigurator::Checksum() {
    long sum = cboFRef.ListIndex() + 1;
    for (unsigned char c : txtNote.Text()) sum += c;
    return std::to_string(sum);
}

bool TestConfigurator::FillForm(clsEntryFile& data, const std::string& path) {
    txtFilePath.SetText(mFileAccessor::GetFilePath(App(), path));
    SetCaption(mFileAccessor::GetFileName(path));
    mShared::SetListIndex(cboFRef, mShared::FormatFrequencyFixed(data.f(0)));
    txtNote.SetText(std::to_string(data.i(0)));
    cmdCalculate_Click();
    return !refuseFill;
}

bool TestConfigurator::Save() {
    return MakeEntryFile(txtFilePath.Text());
}

std::string TestConfigurator::EntryText() const {
    return "# s " + Device() + "-01\r\n# f " + mShared::FormatFrequencyFixed(Val(cboFRef.Text())) +
           " ;0\r\n# i " + txtNote.Text() + " ;0\r\n";
}

bool TestConfigurator::MakeEntryFile(const std::string& path) {
    // A failure is reported as the entry-file classes report it.
    const std::string failure = WriteTextFileAtomically(path, EntryText());
    if (!failure.empty())
        App().Errors().Raise(75, "TestConfigurator.MakeEntryFile",
                             "Path/File access error: '" + path + "' was not written: " + failure +
                                 ".");
    return failure.empty();
}

void TestConfigurator::cmdCalculate_Click() {
    App().Main().FileChange();
    App().gblnNeedsCalculate = false;
    cmdCalculate.SetBackColor(colors::Grey);
}

void TestConfigurator::Form_Load() {
    App().DeviceForm().mstrPreviousDevice = Device();
    SetCaption("Untitled (" + Device() + ")");
    cboFRef.Clear();
    for (const char* item : {"10.00000 MHz", "14.31818 MHz", "25.00000 MHz"}) cboFRef.AddItem(item);
    cboFRef.SetListIndex(1);
    txtNote.SetText("0");
    App().gblnNeedsCalculate = false;
    cmdCalculate.SetBackColor(colors::Yellow);
    picPower.Move(120, 240, 3000, 2000);
    picDebugWindow.Move(360, 480, 3000, 2000);
}

void TestConfigurator::Form_Unload() {
    if (unloadCounter != nullptr)
        ++*unloadCounter;
}

ShellHarness::ShellHarness(std::set<std::string> devices) : built(std::move(devices)) {
    app.ConfiguratorFactory = [this](Application& a,
                                     const std::string& device) -> std::unique_ptr<Configurator> {
        if (built.count(device) == 0)
            return nullptr;
        auto doc = std::make_unique<TestConfigurator>(a);
        doc->unloadCounter = &unloads;
        doc->refuseFill = refuseNextFill;
        return doc;
    };
}

TestConfigurator* ShellHarness::Doc() const {
    return dynamic_cast<TestConfigurator*>(app.Document());
}

void ShellHarness::Start(const std::string& commandLine) {
    app.Main().MDIForm_Load(commandLine);
}

void ShellHarness::NewDocument(const std::string& device) {
    platform.QueueModal("frmDevice", [device](Window& w) {
        auto& form = dynamic_cast<frmDevice&>(w);
        form.OptionFor(device)->SetValue(true);
        form.cmdOK_Click();
    });
    app.Main().mnuNew.RaiseClick();
}

void ShellHarness::Edit(const std::string& note) {
    Doc()->txtNote.SetText(note);
    Doc()->cmdCalculate_Click();
}

void ShellHarness::QueueSummaryOK() {
    platform.QueueModal("frmSummary",
                        [](Window& w) { dynamic_cast<frmSummary&>(w).cmdOK_Click(); });
}

int ShellHarness::CountMessages(const std::string& text) const {
    int count = 0;
    for (const auto& message : platform.Messages())
        if (message.Text.find(text) != std::string::npos)
            ++count;
    return count;
}

std::string WriteEntry(const std::string& folder, const std::string& name,
                       const std::string& partDescription, double frequency, int value) {
    const std::string path = (std::filesystem::path(folder) / name).string();
    const std::string text = "Modification Date: Feb/03/2003\r\nCustomer: Acme\r\n# s " +
                             partDescription + "\r\n# f " +
                             mShared::FormatFrequencyFixed(frequency) + " ;0\r\n# i " +
                             std::to_string(value) + " ;0\r\n";
    WriteTextFileAtomically(path, text);
    return path;
}

}  // namespace pendulon::test
