#pragma once
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Color.hpp"
#include "platform/ErrorReport.hpp"
#include "platform/Field.hpp"
#include "platform/PictureBox.hpp"
#include "platform/Window.hpp"

namespace pendulon {

class AppServices;

// Draws in a raised or sunken three-dimensional style: the panels behind a window's labels,
// and a chip in its package with its pins and pin names. Every length is snapped to whole
// pixels of the screen so that the drawing stays crisp at any scale.
class clsGraphics {
  public:
    // An argument that may be any object, as the panel routine checks the kinds it is given.
    using Object = std::variant<std::monostate, Window*, Field*>;
    // The optional inset flag, which a caller may pass as any value.
    using Variant = std::variant<bool, std::string, double>;

    clsGraphics(ErrorReport& errors, int twipsPerPixelX, int twipsPerPixelY);
    // Reports through the application and takes its screen's twips per pixel.
    explicit clsGraphics(AppServices& app);

    // Package of the chip: SOIC() or DIP().
    int mintPackage = 0;
    int SOIC() const { return 0; }
    int DIP() const { return 1; }

    // Draws the label lblObject of the form frmObject as a panel on the form's surface.
    void DrawPanel3D(PictureBox& surface, Object frmObject, Object lblObject,
                     std::optional<Variant> varInset = std::nullopt);
    void DrawBox3D(PictureBox& target, int left, int top, int width, int height, Color fill,
                   Color highlight, Color shadow);
    // astrPin(0) holds the pin count, astrPin(k) the text of pin k: a name, optionally ";" and a
    // mask whose non-blank characters put a bar over the name's character at that position.
    void DrawChip(PictureBox& picPBox, const std::string& strChipName,
                  const std::vector<std::string>& astrPin, double dblChipScale);
    // The chip drawn as large as its picture holds it, at most at the largest scale: the
    // scale is lowered in steps of a twentieth until every line and text lies inside the
    // picture. Returns the scale drawn at.
    double DrawChipToFit(PictureBox& picPBox, const std::string& strChipName,
                         const std::vector<std::string>& astrPin, double dblLargestScale);
    // The rectangle that a picture's drawing covers, texts measured in the picture's metrics.
    struct Bounds {
        double Left = 0, Top = 0, Right = 0, Bottom = 0;
    };
    static Bounds DrawingBounds(const PictureBox& picture);
    void DrawChipBody3D(PictureBox& target, int left, int top, int width, int height, bool notch);
    void DrawNotch3D(PictureBox& target, int x, int y, int size, Color fill, Color highlight,
                     Color shadow);
    void DrawPin3D(PictureBox& target, int x, int y, int width, int height, Color fill,
                   Color outline, bool leftSide);
    void DrawPinDIP3D(PictureBox& target, int x, int y, int width, int height, Color fill,
                      Color outline, bool leftSide);

    // Metrics of the last DrawChip.
    int DepthX() const { return mintDepthX; }
    int DepthY() const { return mintDepthY; }
    int PinEdge() const { return mintPinEdge; }

    // A length of k twips at scale s, snapped to whole pixels. The vertical one divides by the
    // horizontal pixel size too: the drawing assumes square pixels only through this rule.
    int SnapX(double k, double s) const;
    int SnapY(double k, double s) const;

  private:
    ErrorReport& errors_;
    int twipsX_;
    int twipsY_;
    int mintDepthX = 0;
    int mintDepthY = 0;
    int mintPinEdge = 0;
};

}  // namespace pendulon
