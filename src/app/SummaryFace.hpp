#pragma once
#include <string>
#include <utility>

#include "platform/Label.hpp"
#include "platform/TextField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

// The identity of the document as the entry files and reports fill and read it: file name,
// date, revision, customer, engineer, comments and checksum. frmSummary is this window.
class SummaryFace : public Window {
  public:
    explicit SummaryFace(std::string name) : Window(std::move(name)) {}

    // Left with OK; also carries the result of a Save As.
    bool mblnOK = false;

    TextField txtFilename;
    TextField txtDate;
    TextField txtRevision;
    TextField txtCustomer;
    TextField txtFAE;
    TextField txtComments;
    Label lblChecksum;
};

}  // namespace pendulon
