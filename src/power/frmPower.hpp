#pragma once
#include <array>
#include <string>

#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class Application;
class Configurator;

// The power table builder. A configurator fills headings, units and cells; ShowPower turns
// them into text lines and paints them on the configurator's picPower.
class frmPower : public Window {
public:
    explicit frmPower(Application& app);

    void SetParentForm(Configurator* parent) { mobjParentForm = parent; }
    Configurator* ParentForm() const { return mobjParentForm; }
    void CalculatePower();
    void Clear();
    void SetColCount(int value);
    void SetRowCount(int value);
    void SetHead(int index, const std::string& text);
    void SetUnit(int index, const std::string& text);
    void SetCell(int row, int column, const std::string& text);
    void SetFootnote(const std::string& text);
    void ShowPower();
    void HidePower();
    void MouseDown(int button, int shift, double x, double y);

    int ColCount() const { return mintColCount; }
    int RowCount() const { return mintRowCount; }

    Label lblCaption;
    Label lblClose;
    Label lblHead;
    ListField lstPower;
    Label lblFootnote;
    CommandButton cmdCalculate;

private:
    Application& app_;
    int mintColCount = 0;
    int mintRowCount = 0;
    std::array<std::string, 8> mastrHead{};
    std::array<std::string, 8> mastrUnit{};
    std::array<std::array<std::string, 8>, 33> mastrCell{};
    Configurator* mobjParentForm = nullptr;
};

}  // namespace pendulon
