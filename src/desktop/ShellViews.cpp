#include "desktop/ShellViews.hpp"

#include <QCheckBox>
#include <QEvent>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>

#include "desktop/Binder.hpp"
#include "desktop/PictureView.hpp"
#include "desktop/ViewBuilder.hpp"
#include "desktop/ViewRegistry.hpp"
#include "platform/PictureBox.hpp"
#include "shell/Application.hpp"
#include "shell/frmAbout.hpp"
#include "shell/frmAboutKITE.hpp"
#include "shell/frmDevice.hpp"
#include "shell/frmOptions.hpp"
#include "shell/frmSplash.hpp"
#include "shell/frmSummary.hpp"

namespace pendulon {

namespace {

QWidget* OptionsView(frmOptions& form, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QVBoxLayout(view);
    QGroupBox* general = make.Frame("fraGeneral");
    auto* generalLayout = new QVBoxLayout(general);
    generalLayout->addWidget(make.Check("chkSaveOnExit"));
    generalLayout->addWidget(make.Check("chkUseNotepad"));
    layout->addWidget(general);
    QGroupBox* entry = make.Frame("fraEntryFile");
    auto* entryLayout = new QVBoxLayout(entry);
    entryLayout->addWidget(make.Check("chkEntFileIncludeDescription"));
    layout->addWidget(entry);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    QPushButton* ok = make.Button("cmdOK");
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(make.Button("cmdCancel"));
    layout->addLayout(buttons);
    new Binder(form, view, tppX, tppY);
    return view;
}

// A picture that takes the room its layout gives it: the picture's own size follows its view,
// and the drawing is made anew for the new size.
class FollowViewSize : public QObject {
  public:
    FollowViewSize(PictureView* view, int tppX, int tppY, std::function<void()> redraw)
        : QObject(view), view_(view), tppX_(tppX), tppY_(tppY), redraw_(std::move(redraw)) {
        const QSize least = view->sizeHint();
        view->setMinimumSize(least);
        view->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        view->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == view_ && event->type() == QEvent::Resize) {
            PictureBox& picture = view_->Picture();
            const double width = double(view_->width()) * tppX_;
            const double height = double(view_->height()) * tppY_;
            if (picture.Width() != width || picture.Height() != height) {
                picture.SetWidth(width);
                picture.SetHeight(height);
                if (redraw_)
                    redraw_();
            }
        }
        return false;
    }

  private:
    PictureView* view_;
    int tppX_;
    int tppY_;
    std::function<void()> redraw_;
};

QWidget* DeviceView(frmDevice& form, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QHBoxLayout(view);
    auto* left = new QVBoxLayout;
    QGroupBox* devices = make.Frame("fraDevice");
    auto* grid = new QGridLayout(devices);
    // One row per family, its variants side by side.
    const std::vector<std::vector<const char*>> rows = {{"QX6105A", "QX6105AF", "QX6105AI"},
                                                        {"QX7311", "QX7311F", "QX7311I"},
                                                        {"QX7312", "QX7312F", "QX7312I"},
                                                        {"QX4860", "QX4860F", "QX4860I"},
                                                        {"QX5140"},
                                                        {"QX3350", "QX3350I"}};
    for (int r = 0; r < int(rows.size()); ++r)
        for (int c = 0; c < int(rows[size_t(r)].size()); ++c)
            grid->addWidget(make.Option(QString("opt") + rows[size_t(r)][size_t(c)]), r, c);
    left->addWidget(devices);
    left->addWidget(make.Check("chkShowPinout"));
    left->addStretch(1);
    auto* buttons = new QHBoxLayout;
    QPushButton* ok = make.Button("cmdOK");
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(make.Button("cmdCancel"));
    left->addLayout(buttons);
    left->addWidget(make.Button("cmdDecisionTree"));
    layout->addLayout(left);

    // The pinout fills its frame; the chips are drawn once their pictures have their views, so
    // that they are measured in the font they are painted in.
    QGroupBox* pinout = make.Frame("fraPinout");
    auto* pictures = new QHBoxLayout(pinout);
    auto redraw = [&form] {
        if (form.chkShowPinout.Value() != 0)
            form.DrawPinout();
    };
    for (int i = 0; i < form.picPinout.Count(); ++i) {
        PictureView* picView = make.Picture(form.picPinout[i]);
        new FollowViewSize(picView, tppX, tppY, redraw);
        pictures->addWidget(picView);
    }
    layout->addWidget(pinout);

    new Binder(form, view, tppX, tppY);
    redraw();
    // The wide window shows the pinout, the narrow one hides it.
    auto follow = [pinout](Window& window) {
        pinout->setVisible(window.Width() > frmDevice::kNarrowWidth);
    };
    follow(form);
    const int id = form.AddObserver(follow);
    QObject::connect(view, &QObject::destroyed, [&form, id] { form.RemoveObserver(id); });
    return view;
}

QWidget* SummaryView(frmSummary& form, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QGridLayout(view);
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"lblFilename", "txtFilename"},     {"lblDate", "txtDate"}, {"lblVersion", "txtRevision"},
        {"lblCustomerName", "txtCustomer"}, {"lblFAE", "txtFAE"},   {"lblComments", "txtComments"}};
    int row = 0;
    for (const auto& [label, text] : rows) {
        layout->addWidget(make.Label(label), row, 0);
        QLineEdit* edit = make.Text(text);
        edit->setMinimumWidth(260);
        layout->addWidget(edit, row, 1);
        ++row;
    }
    layout->addWidget(make.Label("lblChecksumLabel"), row, 0);
    layout->addWidget(make.Label("lblChecksum"), row, 1);
    ++row;
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    QPushButton* ok = make.Button("cmdOK");
    ok->setDefault(true);
    buttons->addWidget(ok);
    layout->addLayout(buttons, row, 0, 1, 2);
    new Binder(form, view, tppX, tppY);
    return view;
}

QWidget* AboutView(frmAbout& form, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QHBoxLayout(view);
    layout->addWidget(make.Picture(form.picLogo), 0, Qt::AlignTop);
    auto* text = new QVBoxLayout;
    QLabel* maker = make.Label("lblVARNHOL");
    QFont big = maker->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.4);
    maker->setFont(big);
    text->addWidget(maker);
    text->addWidget(make.Label("lblDivision"));
    text->addSpacing(8);
    QLabel* name = make.Label("lblAppName");
    name->setFont(big);
    text->addWidget(name);
    text->addWidget(make.Label("lblVersion"));
    text->addSpacing(8);
    text->addWidget(make.Label("lblCompany"));
    text->addWidget(make.Label("lblContact1"));
    text->addWidget(make.Label("lblContact2"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    QPushButton* close = make.Button("cmdClose");
    close->setDefault(true);
    buttons->addWidget(close);
    text->addLayout(buttons);
    layout->addLayout(text);
    new Binder(form, view, tppX, tppY);
    return view;
}

QWidget* AboutKITEView(frmAboutKITE& form, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QHBoxLayout(view);
    layout->addWidget(make.Picture(form.picIcon), 0, Qt::AlignTop);
    auto* right = new QVBoxLayout;
    auto* title = new QLabel("KITE", view);
    QFont big = title->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.4);
    title->setFont(big);
    right->addWidget(title);
    right->addStretch(1);
    QPushButton* close = make.Button("cmdClose");
    close->setDefault(true);
    right->addWidget(close, 0, Qt::AlignRight);
    layout->addLayout(right);
    view->setMinimumWidth(240);
    new Binder(form, view, tppX, tppY);
    return view;
}

// Starts a timer once its widget is first shown.
class StartOnShow : public QObject {
  public:
    StartOnShow(QWidget* widget, int milliseconds, std::function<void()> tick)
        : QObject(widget), widget_(widget), milliseconds_(milliseconds), tick_(std::move(tick)) {
        widget->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget_ && event->type() == QEvent::Show && !started_) {
            started_ = true;
            QTimer::singleShot(milliseconds_, widget_, tick_);
        }
        return false;
    }

  private:
    QWidget* widget_;
    int milliseconds_;
    std::function<void()> tick_;
    bool started_ = false;
};

QWidget* SplashView(frmSplash& form, Application& app, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QVBoxLayout(view);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->addWidget(make.Picture(form.picSplash), 0, Qt::AlignHCenter);
    auto* title = new QLabel(QString::fromStdString(app.gstrTitleTM), view);
    QFont big = title->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 2.0);
    title->setFont(big);
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);
    auto* build = new QLabel(QString::fromStdString(app.gstrBuild), view);
    build->setAlignment(Qt::AlignCenter);
    layout->addWidget(build);
    new Binder(form, view, tppX, tppY);
    // The splash's one timer: a tick unloads the window. It runs from the moment the splash
    // is on the screen, so that it cannot go by before the splash shows.
    if (form.tmrSplashEnabled) {
        new StartOnShow(view, form.tmrSplashInterval, [&form] {
            if (form.tmrSplashEnabled)
                form.tmrSplash_Timer();
        });
    }
    return view;
}

}  // namespace

void RegisterShellViews(ViewRegistry& views, Application& app) {
    auto tppX = [&app] { return app.Services().TwipsPerPixelX(); };
    auto tppY = [&app] { return app.Services().TwipsPerPixelY(); };
    views.Register(
        "frmOptions",
        [=](Window& w, QWidget* p) {
            return OptionsView(static_cast<frmOptions&>(w), p, tppX(), tppY());
        },
        [](Window& w) { static_cast<frmOptions&>(w).cmdCancel_Click(); });
    views.Register(
        "frmDevice",
        [=](Window& w, QWidget* p) {
            return DeviceView(static_cast<frmDevice&>(w), p, tppX(), tppY());
        },
        [](Window& w) { static_cast<frmDevice&>(w).Form_QueryUnload(0); });
    views.Register("frmSummary", [=](Window& w, QWidget* p) {
        return SummaryView(static_cast<frmSummary&>(w), p, tppX(), tppY());
    });
    views.Register(
        "frmAbout",
        [=](Window& w, QWidget* p) {
            return AboutView(static_cast<frmAbout&>(w), p, tppX(), tppY());
        },
        [](Window& w) { static_cast<frmAbout&>(w).cmdClose_Click(); });
    views.Register(
        "frmAboutKITE",
        [=](Window& w, QWidget* p) {
            return AboutKITEView(static_cast<frmAboutKITE&>(w), p, tppX(), tppY());
        },
        [](Window& w) { static_cast<frmAboutKITE&>(w).cmdClose_Click(); });
    views.Register(
        "frmSplash",
        [=, &app](Window& w, QWidget* p) {
            return SplashView(static_cast<frmSplash&>(w), app, p, tppX(), tppY());
        },
        [](Window& w) { static_cast<frmSplash&>(w).Form_QueryUnload(); });
}

}  // namespace pendulon
