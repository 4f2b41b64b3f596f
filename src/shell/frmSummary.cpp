#include "shell/frmSummary.hpp"

#include "app/mSharedApp.hpp"
#include "core/Numbers.hpp"
#include "core/mShared.hpp"
#include "shell/Application.hpp"
#include "shell/frmMain.hpp"

namespace pendulon {

frmSummary::frmSummary(Application& app) : SummaryFace("frmSummary"), app_(app) {
    SetCaption("Configuration");
    lblFilename.SetCaption("File Name:");
    lblDate.SetCaption("Date:");
    lblVersion.SetCaption("Revision:");
    lblCustomerName.SetCaption("Customer:");
    lblFAE.SetCaption("FAE:");
    lblComments.SetCaption("Comments:");
    lblChecksumLabel.SetCaption("Checksum:");
    lblChecksum.SetCaption("n/a");
    cmdOK.SetCaption("OK");
    txtComments.SetMultiLine(true);
    Register("lblFilename", lblFilename);
    Register("txtFilename", txtFilename);
    Register("lblDate", lblDate);
    Register("txtDate", txtDate);
    Register("lblVersion", lblVersion);
    Register("txtRevision", txtRevision);
    Register("lblCustomerName", lblCustomerName);
    Register("txtCustomer", txtCustomer);
    Register("lblFAE", lblFAE);
    Register("txtFAE", txtFAE);
    Register("lblComments", lblComments);
    Register("txtComments", txtComments);
    Register("lblChecksumLabel", lblChecksumLabel);
    Register("lblChecksum", lblChecksum);
    Register("cmdOK", cmdOK);
    for (TextField* field :
         {&txtFilename, &txtDate, &txtRevision, &txtCustomer, &txtFAE, &txtComments}) {
        field->OnGotFocus = [field] { mShared::HighLightText(*field); };
    }
    txtDate.OnDblClick = [this] { txtDate_DblClick(); };
    txtDate.OnValidate = [this](bool& cancel) { txtDate_Validate(cancel); };
    cmdOK.OnClick = [this] { cmdOK_Click(); };
}

void frmSummary::Form_Load() {
    txtRevision.SetEnabled(app_.Main().mnuViewDebugWindow.Enabled());
}

void frmSummary::Reset() {
    mblnOK = false;
    txtFilename.SetText("");
    txtRevision.SetText("");
    lblChecksum.SetCaption("n/a");
    txtDate.SetText(mShared::GetCurrentDate(app_));
}

void frmSummary::cmdOK_Click() {
    mblnOK = true;
    SetVisible(false);
}

void frmSummary::txtDate_DblClick() {
    txtDate.SetText(mShared::GetCurrentDate(app_));
}

void frmSummary::txtDate_Validate(bool& cancel) {
    const auto date = ParseDate(txtDate.Text());
    if (!date) {
        app_.Services().MsgBox("The date you have entered is not valid.", msgbox::Critical,
                               app_.gstrTitle);
        mShared::HighLightText(txtDate);
        cancel = true;
        return;
    }
    txtDate.SetText(FormatDate(*date));
}

}  // namespace pendulon
