#pragma once
#include "app/SummaryFace.hpp"
#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"

namespace pendulon {

class Application;

// The identity of the document: file name, date, revision, customer, engineer, comments and
// checksum. Loaded for the whole run, so files and reports read it at any time.
class frmSummary : public SummaryFace {
  public:
    explicit frmSummary(Application& app);

    // The labels in front of SummaryFace's fields, and the OK button.
    Label lblFilename;
    Label lblDate;
    Label lblVersion;
    Label lblCustomerName;
    Label lblFAE;
    Label lblComments;
    Label lblChecksumLabel;
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
