#include "entryfile/mFileAccessor.hpp"

#include <filesystem>

#include <array>

#include "app/AppServices.hpp"
#include "app/Configurator.hpp"
#include "app/DeviceFace.hpp"
#include "app/MainFace.hpp"
#include "app/SummaryFace.hpp"
#include "app/mSharedApp.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "entryfile/Checksums.hpp"
#include "entryfile/clsEntryFile.hpp"

namespace pendulon::mFileAccessor {

namespace {
// Open reads entry files and fuse maps; an entry file is saved as one.
constexpr const char* kOpenFilter =
    "Entry Files (*.ent)|*.ent|Fuse Maps (*.jed)|*.jed|All Files (*.*)|*.*";
constexpr const char* kFilter = "Entry Files (*.ent)|*.ent|All Files (*.*)|*.*";

// Position of the first folder separator; both kinds are accepted.
size_t FirstSeparator(const std::string& text) {
    return text.find_first_of("\\/");
}

// The device literal of a part description, or empty text when no family matches.
std::string FormDevice(const std::string& pd) {
    auto has = [&pd](const char* what) { return ContainsNoCase(pd, what); };
    if (has("QX7311") || has("QX7312")) {
        for (const char* device : {"QX7311F", "QX7312F", "QX7311I", "QX7312I", "QX7311", "QX7312"})
            if (has(device))
                return device;
    }
    if (has("QX5140"))
        return "QX5140";
    if (has("QX6105") || has("Q6105")) {
        if (has("QX6105AF") || has("QX6105F"))
            return "QX6105AF";
        if (has("QX6105AI") || has("QX6105I"))
            return "QX6105AI";
        return "QX6105A";
    }
    if (has("QX4860")) {
        if (has("QX4860F"))
            return "QX4860F";
        if (has("QX4860I"))
            return "QX4860I";
        return "QX4860";
    }
    if (has("QX3350")) {
        // The variant letter stands in front of the first "-", or last; only a small "i" counts.
        const size_t dash = pd.find('-');
        char letter = '\0';
        if (dash == std::string::npos) {
            if (!pd.empty())
                letter = pd.back();
        } else if (dash > 0) {
            letter = pd[dash - 1];
        }
        return letter == 'i' ? "QX3350I" : "QX3350";
    }
    return {};
}
}  // namespace

std::string StartFolder(AppServices& app) {
    namespace fs = std::filesystem;
    std::string file;
    if (const Configurator* document = app.Document())
        file = document->txtFilePath.Text();
    if (file.empty() && app.Main().mintRecentFileCount > 0)
        file = app.Main().RecentPath(1);
    if (file.empty())
        return {};
    return fs::path(file).parent_path().string();
}

std::string OpenFile(AppServices& app) {
    CommonDialog& dialog = app.Main().dlgCommon;
    dialog.DialogTitle = "Open Entry File";
    dialog.InitDir = StartFolder(app);
    dialog.CancelError = true;
    dialog.Filter = kOpenFilter;
    dialog.FilterIndex = 1;
    dialog.Flags = CommonDialog::EntryFileFlags;
    if (!app.Services().ShowOpen(dialog))
        return {};
    return dialog.FileName;
}

const char* EntryFileFilter() {
    return kFilter;
}

std::string DisplaySaveAsPrompt(AppServices& app) {
    SummaryFace& summary = app.Summary();
    // Closing the summary without its OK is a cancel.
    summary.mblnOK = false;
    app.Main().ShowConfigurationForm();
    if (!summary.mblnOK)
        return {};
    summary.mblnOK = false;
    CommonDialog& dialog = app.Main().dlgCommon;
    dialog.DialogTitle = "Save Entry File As";
    dialog.CancelError = true;
    dialog.FileName = summary.txtFilename.Text();
    dialog.InitDir = StartFolder(app);
    // The filter is the one the last Open left, without the fuse maps Open offers; before any
    // Open, the entry files'. A name typed without an extension becomes an entry file.
    if (dialog.Filter.empty() || dialog.Filter == kOpenFilter) {
        dialog.Filter = kFilter;
        dialog.FilterIndex = 1;
    }
    dialog.DefaultExt = "ent";
    dialog.Flags = CommonDialog::EntryFileFlags;
    if (!app.Services().ShowSave(dialog))
        return {};
    summary.mblnOK = true;
    return dialog.FileName;
}

std::string GetFileName(const std::string& path) {
    std::string text = path;
    while (!text.empty() && FirstSeparator(text) != std::string::npos)
        text = Trim(text.substr(FirstSeparator(text) + 1));
    return text;
}

std::string GetFilePath(AppServices& app, const std::string& path) {
    if ((app.Main().dlgCommon.Flags & CommonDialog::ReadOnly) != 0)
        return {};
    return path;
}

std::string SummaryDevice(const std::string& partDescription) {
    static constexpr std::array<const char*, 13> kDevices = {
        "QX7311F", "QX7311I", "QX7311", "QX7312F",  "QX7312I",  "QX7312", "QX5140",
        "QX4860F", "QX4860I", "QX4860", "QX6105AF", "QX6105AI", "QX6105A"};
    for (const char* device : kDevices)
        if (ContainsNoCase(partDescription, device))
            return device;
    return partDescription;
}

bool FillConfigurationSummary(AppServices& app, clsEntryFile& entry) {
    SummaryFace& summary = app.Summary();
    summary.txtDate.SetText(entry.mstrModificationDate);
    summary.txtComments.SetText(entry.mstrComments);
    summary.txtCustomer.SetText(entry.mstrCustomer);
    summary.txtRevision.SetText(entry.mstrVersion);
    summary.txtFAE.SetText(entry.mstrFAE);
    const std::string device = SummaryDevice(entry.mstrPartDescription);
    mShared::SetSummaryFormCaption(app, device);
    summary.lblChecksum.SetCaption(mShared::CalculateChecksum(entry, device));
    app.Main().DisplayStatus("");
    // Closing the summary without its OK is a cancel.
    summary.mblnOK = false;
    app.Services().ShowModal(summary);
    return summary.mblnOK;
}

bool FillForm(AppServices& app, clsEntryFile& entry, const std::string& path) {
    const char* const source = "(mFileAccessor) FillForm";
    MainFace& main = app.Main();
    main.DisplayStatus("Filling form...");
    bool result = false;
    const std::string device = FormDevice(entry.mstrPartDescription);
    std::unique_ptr<Configurator> created;
    if (!device.empty())
        created = app.CreateConfigurator(device);
    if (!created) {
        // An unknown family, or one whose window this build does not have.
        app.DeviceForm().CreateNew(false);
        app.Errors().Raise(10054, source,
                           "The ENT file does not represent a known or current device.");
    }
    if (created && app.Document() != nullptr) {
        app.Document()->mUnloadRequired = true;
        app.UnloadDocument(kUnloadFormCode);
    }
    if (created && app.Document() == nullptr) {
        if (OptionButton* option = app.DeviceForm().OptionFor(device))
            option->SetValue(true);
        created->Form_Load();
        Configurator& child = *created;
        app.SetDocument(std::move(created));
        child.SetVisible(true);
        child.SetDevice(device);
        result = child.FillForm(entry, path);
        child.SetFocusTo(&child.cboFRef);
    }
    main.DisplayStatus("");
    return result;
}

}  // namespace pendulon::mFileAccessor
