#include "desktop/WizardView.hpp"

#include <QFont>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/Binder.hpp"
#include "desktop/ViewBuilder.hpp"
#include "desktop/ViewRegistry.hpp"
#include "shell/Application.hpp"
#include "wizard/frmDecisionTree.hpp"

namespace pendulon {

namespace {

// Width of a page in pixels: room for the longest question on two lines.
constexpr int kPageWidth = 460;

QString Index(int page) {
    return "(" + QString::number(page) + ")";
}

QFrame* Line(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

// One page: the question, its answers, and the page's own buttons.
QWidget* PageView(int page, QWidget* parent, const ViewBuilder& make) {
    auto* view = new QWidget(parent);
    view->setObjectName("fraDecision" + Index(page));
    auto* layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    QLabel* question = make.Label("lblQuestion" + Index(page));
    question->setParent(view);
    question->setWordWrap(true);
    QFont font = question->font();
    font.setBold(true);
    question->setFont(font);
    layout->addWidget(question);
    QGroupBox* response = make.Frame("fraResponse" + Index(page));
    response->setParent(view);
    response->setFlat(true);
    auto* options = new QVBoxLayout(response);
    options->setContentsMargins(16, 4, 4, 4);
    for (const char* base : {"opt1", "opt2", "opt3", "opt4"}) {
        QRadioButton* option = make.Option(base + Index(page));
        option->setParent(response);
        options->addWidget(option);
    }
    layout->addWidget(response);
    layout->addStretch(1);
    layout->addWidget(Line(view));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const char* base : {"cmdPrevious", "cmdNext"}) {
        QPushButton* button = make.Button(base + Index(page));
        button->setParent(view);
        buttons->addWidget(button);
    }
    buttons->addSpacing(12);
    QPushButton* cancel = make.Button("cmdCancel" + Index(page));
    cancel->setParent(view);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    return view;
}

QWidget* WizardView(frmDecisionTree& form, QWidget* parent, int tppX, int tppY) {
    auto* view = new QWidget(parent);
    ViewBuilder make(view, tppX, tppY);
    auto* layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 12);

    // The heading on a light band, as wizards of this desktop show their title.
    auto* banner = new QFrame(view);
    banner->setAutoFillBackground(true);
    QPalette light = banner->palette();
    light.setColor(QPalette::Window, light.color(QPalette::Base));
    banner->setPalette(light);
    auto* bannerLayout = new QVBoxLayout(banner);
    bannerLayout->setContentsMargins(16, 14, 16, 14);
    QLabel* title = make.Label("lblTitle");
    title->setParent(banner);
    title->setWordWrap(true);
    QFont big = title->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.25);
    title->setFont(big);
    bannerLayout->addWidget(title);
    layout->addWidget(banner);
    layout->addWidget(Line(view));

    auto* body = new QVBoxLayout;
    body->setContentsMargins(16, 8, 16, 0);
    QLabel* notes = make.Label("lblNotes");
    notes->setWordWrap(true);
    body->addWidget(notes);

    // The pages lie on top of each other; the model shows the one in front.
    auto* stack = new QWidget(view);
    auto* pages = new QGridLayout(stack);
    pages->setContentsMargins(0, 0, 0, 0);
    std::vector<QWidget*> pageViews;
    for (int i = 0; i < frmDecisionTree::kPageCount; ++i) {
        QWidget* page = PageView(i, stack, make);
        page->setParent(stack);
        pages->addWidget(page, 0, 0);
        pageViews.push_back(page);
    }
    // Every page has the size of the largest, so the dialog keeps its size from page to page.
    int height = 0;
    for (QWidget* page : pageViews) {
        QLayout* pageLayout = page->layout();
        pageLayout->activate();
        const int h = pageLayout->hasHeightForWidth() ? pageLayout->totalHeightForWidth(kPageWidth)
                                                      : page->sizeHint().height();
        height = std::max(height, h);
    }
    stack->setFixedSize(kPageWidth, height + 24);
    body->addWidget(stack);
    layout->addLayout(body);

    new Binder(form, view, tppX, tppY);

    // The page that comes to the front takes the keyboard: its chosen answer, else its first
    // one, else its Close; Enter is its Next.
    auto front = [&form, view](int page) {
        auto* next = view->findChild<QPushButton*>("cmdNext" + Index(page));
        next->setDefault(true);
        QWidget* focus = nullptr;
        QWidget* first = nullptr;
        for (auto* options : {&form.opt1, &form.opt2, &form.opt3, &form.opt4}) {
            OptionButton& option = (*options)[page];
            if (!option.Visible())
                continue;
            auto* widget = view->findChild<QWidget*>(QString::fromStdString(option.Name()));
            if (first == nullptr)
                first = widget;
            if (option.Value())
                focus = widget;
        }
        if (focus == nullptr)
            focus = first;
        if (focus == nullptr)
            focus = view->findChild<QPushButton*>("cmdCancel" + Index(page));
        focus->setFocus(Qt::OtherFocusReason);
    };
    for (int i = 0; i < frmDecisionTree::kPageCount; ++i) {
        Field& page = form.fraDecision[i];
        const int id = page.AddObserver([front, i](Field& changed) {
            if (changed.Visible())
                front(i);
        });
        QObject::connect(view, &QObject::destroyed, [&page, id] { page.RemoveObserver(id); });
    }
    if (form.FrontPage() >= 0)
        front(form.FrontPage());
    return view;
}

}  // namespace

void RegisterWizardView(ViewRegistry& views, Application& app) {
    views.Register(
        "frmDecisionTree",
        [&app](Window& w, QWidget* p) {
            return WizardView(static_cast<frmDecisionTree&>(w), p, app.Services().TwipsPerPixelX(),
                              app.Services().TwipsPerPixelY());
        },
        // The window's own close is the Cancel of the page in front.
        [](Window& w) {
            auto& wizard = static_cast<frmDecisionTree&>(w);
            wizard.cmdCancel_Click(std::max(0, wizard.FrontPage()));
        });
}

}  // namespace pendulon
