#pragma once
#include <array>
#include <string>

#include "platform/CommandButton.hpp"
#include "platform/Label.hpp"
#include "platform/ListField.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class AppServices;
class Configurator;
class PictureBox;

// The power table builder. A configurator fills headings, units and cells; ShowPower turns
// them into text lines and paints them on the configurator's picPower. The window itself is
// never shown: its fields are the layout the painting follows.
class frmPower : public Window {
  public:
    explicit frmPower(AppServices& app);

    // Stores the configurator that owns the table; a null parent makes ShowPower do nothing.
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
    // A press on the parent's picPower: the left button inside the close box hides it.
    void MouseDown(int button, int shift, double x, double y);
    // Loading clears the footnote and the list; unloading clears the parent.
    void Form_Load();
    void Form_Unload();

    int ColCount() const { return mintColCount; }
    // The stored texts, empty outside the table.
    std::string Head(int index) const;
    std::string Unit(int index) const;
    std::string Cell(int row, int column) const;
    int RowCount() const { return mintRowCount; }
    // The heading line of the last ShowPower (also the caption of lblHead).
    std::string HeadingLine() const { return lblHead.Caption(); }

    Label lblCaption;
    Label lblClose;
    Label lblHead;
    ListField lstPower;
    Label lblFootnote;
    CommandButton cmdCalculate;

    static constexpr int kMaxColumns = 8;
    static constexpr int kMaxRows = 32;

  private:
    void Paint(PictureBox& picture);
    PictureBox* ParentPicture() const;

    AppServices& app_;
    int mintColCount = 0;
    int mintRowCount = 0;
    std::array<std::string, kMaxColumns> mastrHead{};
    std::array<std::string, kMaxColumns> mastrUnit{};
    std::array<std::array<std::string, kMaxColumns>, kMaxRows + 1> mastrCell{};
    Configurator* mobjParentForm = nullptr;
};

}  // namespace pendulon
