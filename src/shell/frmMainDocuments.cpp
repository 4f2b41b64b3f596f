#include "shell/frmMain.hpp"

#include "app/Configurator.hpp"
#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/Text.hpp"
#include "core/mShared.hpp"
#include "entryfile/clsEntryFile.hpp"
#include "entryfile/mFileAccessor.hpp"
#include "power/frmPower.hpp"
#include "shell/Application.hpp"
#include "shell/ConfiguratorFactory.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmReadBack.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon {

// The document lifecycle: new, open, save, close and exit.

// ---- Documents ------------------------------------------------------------------------------

void frmMain::mnuNew_Click() {
    app_.DeviceForm().CreateNew(true);
    app_.Services().ShowModal(app_.DeviceForm());
}

void frmMain::LoadForm() {
    PlatformServices& services = app_.Services();
    const int pointer = services.MousePointer();
    services.SetMousePointer(kPointerHourglass);
    DisplayStatus("Loading new form...");
    const std::string device = app_.DeviceForm().mstrCurrentDevice;
    std::unique_ptr<Configurator> created;
    if (IsDeviceInTable(device))
        created = CreateConfigurator(app_, device);
    if (!created) {
        app_.Errors().Raise(10603, "frmMain.LoadForm", "An invalid device selection was made.");
    }
    if (app_.ChildIsActive()) {
        if (app_.Preview() != nullptr)
            app_.UnloadPreview();
        app_.UnloadDocument(kUnloadFormCode);
    }
    if (app_.ChildIsActive()) {
        created.reset();
    } else if (created) {
        created->Form_Load();
        Configurator& child = *created;
        app_.SetDocument(std::move(created));
        child.txtFilePath.SetText("");
        child.lblDevice.SetCaption(device);
        child.SetVisible(true);
        mdblSavedState = mShared::ComputeState(child);
        app_.Summary().Reset();
        mblnFileChanged = true;
        mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        mShared::SetSummaryFormCaption(app_, device);
        InitializeMenu(false);
        child.SetFocusTo(&child.cboFRef);
    }
    DisplayStatus("");
    services.SetMousePointer(pointer);
}

void frmMain::mnuOpen_Click() {
    GetFile("");
}

void frmMain::GetFile(const std::string& strFileToRetrieve) {
    std::string path = strFileToRetrieve;
    if (path.empty())
        path = mFileAccessor::OpenFile(app_);
    dlgCommon.Flags = CommonDialog::EntryFileFlags;
    if (path.empty())
        return;
    // A fuse map opens its read-back, in front of the document, which stays as it is.
    if (frmReadBack::IsFuseMapFile(path)) {
        frmReadBack::Show(app_, path);
        return;
    }
    if (app_.ChildIsActive()) {
        if (app_.Preview() != nullptr)
            app_.UnloadPreview();
        app_.UnloadDocument(kUnloadFormCode);
        if (app_.ChildIsActive())
            return;
    }
    DisplayStatus("Reading file...");
    clsEntryFile file(app_.Errors());
    if (!mFileAccessor::ReadFile(path, file)) {
        DisplayStatus("");
        return;
    }
    std::string name = mFileAccessor::GetFileName(path);
    const size_t bracket = InStr(name, "(");
    if (bracket > 0)
        name = pendulon::Left(name, bracket - 1);
    app_.Summary().txtFilename.SetText(Trim(name));
    DisplayStatus("");
    if (!mFileAccessor::FillConfigurationSummary(app_, file)) {
        DisplayStatus("");
        return;
    }
    const bool filled = mFileAccessor::FillForm(app_, file, path);
    Configurator* child = app_.Document();
    if (filled && child != nullptr) {
        DisplayStatus("Computing Checksum...");
        UpdateFileMenu(path);
        InitializeMenu(false);
        mnuViewEntryFileSaved.SetEnabled(true);
        app_.Power().SetParentForm(child);
        mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        mdblSavedState = mShared::ComputeState(*child);
        mblnFileChanged = false;
        DisplayStatus("");
    } else {
        if (child != nullptr) {
            child->mUnloadRequired = true;
            app_.UnloadDocument(kUnloadFormCode);
        }
        app_.Services().MsgBox(
            "NOTE: One or more critical errors have occurred loading the ENT file.\r\n\r\n"
            "The form cannot be loaded when such errors occur.",
            msgbox::Information, app_.gstrTitle);
    }
}

bool frmMain::RefuseUncalculatedSave() {
    if (!app_.gblnNeedsCalculate)
        return false;
    // The answer is compared with Yes, which this box cannot give: nothing is ever saved here.
    app_.Services().MsgBox(
        "Warning! You have not calculated your configurations.\r\n"
        "Please finish your configurations before saving.",
        msgbox::OKCancel | msgbox::Exclamation, app_.gstrTitle);
    return true;
}

void frmMain::mnuSave_Click() {
    SaveDocument();
}

bool frmMain::SaveDocument() {
    if (RefuseUncalculatedSave())
        return false;
    if (!ChildIsActive())
        return false;
    DisplayStatus("Saving file...");
    bool saved = false;
    if (app_.Preview() != nullptr) {
        app_.SavePreview();
        saved = true;
    } else if (Configurator* child = app_.Document()) {
        if (child->txtFilePath.Text().empty()) {
            saved = SaveDocumentAs();
        } else if (child->Save()) {
            // A write that failed has been reported; the document stays unsaved.
            saved = true;
            mdblSavedState = mShared::ComputeState(*child);
            mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        }
    }
    DisplayStatus("");
    return saved;
}

void frmMain::mnuSaveAs_Click() {
    SaveDocumentAs();
}

bool frmMain::SaveDocumentAs() {
    if (RefuseUncalculatedSave())
        return false;
    if (!ChildIsActive())
        return false;
    Configurator* child = app_.Document();
    if (child == nullptr)
        return false;
    const std::string oldPath = child->txtFilePath.Text();
    const std::string path = mFileAccessor::DisplaySaveAsPrompt(app_);
    bool saved = false;
    if (!path.empty()) {
        // The new name, the caption, the recent entry and the saved state follow only a write
        // that succeeded: after a failed one (reported with the path and the reason) the
        // document is as it was, unsaved and under its old name, and Close still asks.
        child->txtFilePath.SetText(path);
        saved = child->Save();
        if (saved) {
            app_.Summary().txtFilename.SetText(mFileAccessor::GetFileName(path));
            child->SetCaption(mFileAccessor::GetFileName(path));
            InitializeMenu(false);
            mnuViewEntryFileSaved.SetEnabled(true);
            if (!oldPath.empty())
                UpdateFileMenu(oldPath);
            mdblSavedState = mShared::ComputeState(*child);
            mstrSavedChecksum = app_.Summary().lblChecksum.Caption();
        } else {
            child->txtFilePath.SetText(oldPath);
        }
    }
    app_.Summary().lblChecksum.SetCaption(mstrSavedChecksum);
    return saved;
}

bool frmMain::CancelChildUnload() {
    Configurator* child = app_.Document();
    if (child == nullptr)
        return false;
    std::string name = child->Caption();
    const size_t bracket = InStr(name, "(");
    if (bracket > 0)
        name = pendulon::Left(name, bracket - 1);
    name = Trim(name);
    bool cancel = false;
    mdblCurrentState = mShared::ComputeState(*child);
    if (mdblCurrentState != mdblSavedState) {
        const int answer =
            app_.Services().MsgBox("Save changes to " + name + "?",
                                   msgbox::YesNoCancel | msgbox::Question, app_.gstrTitle);
        if (answer == msgbox::Yes) {
            // A save that was refused or failed keeps the document open: its work is not lost.
            const bool saved = SaveDocument();
            cancel = !app_.Summary().mblnOK || !saved;
        } else if (answer == msgbox::No) {
            cancel = false;
        } else {
            cancel = true;
        }
    }
    if (!child->txtFilePath.Text().empty())
        UpdateFileMenu(child->txtFilePath.Text());
    PlatformServices& services = app_.Services();
    services.SaveSetting(kPendulon, "Setting", "PowerWindowTop",
                         GeneralNumber(child->picPower.Top()));
    services.SaveSetting(kPendulon, "Setting", "PowerWindowLeft",
                         GeneralNumber(child->picPower.Left()));
    if (mnuViewDebugWindow.Enabled()) {
        services.SaveSetting(kPendulon, "Setting", "DebugWindowTop",
                             GeneralNumber(child->picDebugWindow.Top()));
        services.SaveSetting(kPendulon, "Setting", "DebugWindowLeft",
                             GeneralNumber(child->picDebugWindow.Left()));
    }
    app_.Power().Clear();
    app_.Power().SetParentForm(nullptr);
    ShowHelp("");
    return cancel;
}

void frmMain::mnuClose_Click() {
    if (app_.Preview() != nullptr) {
        app_.UnloadPreview();
        return;
    }
    app_.UnloadDocument(kUnloadFormControlMenu);
}

void frmMain::mnuConfiguration_Click() {
    ShowConfigurationForm();
}

void frmMain::ShowConfigurationForm() {
    frmSummary& summary = app_.Summary();
    summary.txtDate.SetText(mShared::GetCurrentDate(app_));
    if (!mnuViewDebugWindow.Enabled())
        summary.txtRevision.SetText("xxx");
    UpdateChecksum(false);
    app_.Services().ShowModal(summary);
}

void frmMain::mnuExit_Click() {
    MDIForm_QueryUnload(kUnloadFormControlMenu);
}

bool frmMain::MDIForm_QueryUnload(int) {
    if (app_.Preview() != nullptr)
        app_.UnloadPreview();
    if (app_.Document() != nullptr) {
        if (CancelChildUnload())
            return true;
        // The question was answered; the document goes without asking again.
        app_.Document()->mUnloadRequired = true;
        app_.UnloadDocument(kUnloadFormCode);
    }
    app_.Summary().SetVisible(false);
    app_.DeviceForm().SetVisible(false);
    app_.Power().SetVisible(false);
    SaveApplicationSettings();
    app_.End();
    return false;
}

}  // namespace pendulon
