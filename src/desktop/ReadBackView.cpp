#include "desktop/ReadBackView.hpp"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/Binder.hpp"
#include "desktop/PrintPreviewView.hpp"
#include "shell/frmReadBack.hpp"

namespace pendulon {

ReadBackView::ReadBackView(frmReadBack& form, Application& app, QWidget* parent, int twipsPerPixelX,
                           int twipsPerPixelY)
    : QWidget(parent) {
    setObjectName("frmReadBackView");
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(0, 0, 0, 0);

    auto* choices = new QWidget(this);
    choices->setObjectName("fraReadBack");
    auto* row = new QHBoxLayout(choices);
    row->setContentsMargins(6, 6, 6, 0);
    auto* file = new QLabel(choices);
    file->setObjectName("lblFile");
    QFont bold = file->font();
    bold.setBold(true);
    file->setFont(bold);
    row->addWidget(file);
    row->addSpacing(16);
    auto* deviceLabel = new QLabel(choices);
    deviceLabel->setObjectName("lblDevice");
    row->addWidget(deviceLabel);
    auto* device = new QComboBox(choices);
    device->setObjectName("cboDevice");
    device->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    row->addWidget(device);
    row->addSpacing(12);
    auto* referenceLabel = new QLabel(choices);
    referenceLabel->setObjectName("lblReference");
    row->addWidget(referenceLabel);
    auto* reference = new QComboBox(choices);
    reference->setObjectName("cboFRef");
    reference->setEditable(true);
    reference->setMinimumContentsLength(13);
    row->addWidget(reference);
    row->addStretch();
    auto* open = new QPushButton(choices);
    open->setObjectName("cmdOpenDocument");
    open->setAutoDefault(false);
    row->addWidget(open);
    deviceLabel->setBuddy(device);
    referenceLabel->setBuddy(reference);
    root->addWidget(choices);

    preview_ = new PrintPreviewView(form, app, this, twipsPerPixelX, twipsPerPixelY);
    root->addWidget(preview_, 1);
    Binder& binder = preview_->GetBinder();
    binder.BindChildren(choices);
    // Opening the document closes this view: run it once the click is over.
    disconnect(open, &QPushButton::clicked, &binder, nullptr);
    connect(open, &QPushButton::clicked, &binder, [&form, &binder] {
        QTimer::singleShot(0, &binder, [&form] { form.cmdOpenDocument.RaiseClick(); });
    });
}

}  // namespace pendulon
