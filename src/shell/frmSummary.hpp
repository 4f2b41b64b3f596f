#pragma once
#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class Application;

// The identity of the document: file name, date, revision, customer, engineer, comments and
// checksum. Loaded for the whole run, so files and reports read it at any time.
class frmSummary : public Window {
  public:
    explicit frmSummary(Application& app);

    // Left with OK; also carries the result of a Save As.
    bool mblnOK = false;

    Label lblFilename;
    TextField txtFilename;
    Label lblDate;
    TextField txtDate;
    Label lblVersion;
    TextField txtRevision;
    Label lblCustomerName;
    TextField txtCustomer;
    Label lblFAE;
    TextField txtFAE;
    Label lblComments;
    TextField txtComments;
    Label lblChecksumLabel;
    Label lblChecksum;
    CommandButton cmdOK;

    void Form_Load();
    void Reset();
    void cmdOK_Click();
    void txtDate_DblClick();
    void txtDate_Validate(bool& cancel);

  private:
    Application& app_;
};

}  // namespace pendulon
