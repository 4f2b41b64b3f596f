#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>

#include "DesktopTests.hpp"
#include "DocumentFixture.hpp"
#include "desktop/ConfiguratorView.hpp"
#include "shell/ConfiguratorFactory.hpp"

namespace pendulon::test {

namespace {

// The name a screen reader gives a field. On this system a list is read by its value, and
// named by its accessible name (and its label's buddy relation).
QString NameOf(QWidget* widget) {
    if (qobject_cast<QComboBox*>(widget) != nullptr)
        return widget->accessibleName();
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
    return face == nullptr ? QString() : face->text(QAccessible::Name);
}

bool IsField(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QAbstractButton*>(widget) ||
           qobject_cast<const QAbstractSlider*>(widget);
}

// Every shown field of a document view with its name.
QList<QPair<QString, QString>> Names(QWidget* view) {
    QList<QPair<QString, QString>> names;
    for (QWidget* widget : view->findChildren<QWidget*>()) {
        const QString field = widget->objectName();
        if (field.isEmpty() || field.startsWith("qt_") || !widget->isVisible() || !IsField(widget))
            continue;
        names.append({field, NameOf(widget)});
    }
    return names;
}

}  // namespace

class AccessibleNamesTest : public QObject {
    Q_OBJECT
  private slots:
    void everyFieldOfEveryDeviceIsNamedByTheTextOfItsLabels() {
        const QRegularExpression bareNumber(R"(^[\s\d.,:+\-]*$)");
        for (const char* device : TableDevices()) {
            DocumentFixture f;
            ShownDocument<Configurator, ConfiguratorView> s(f, 1400, 1000, device);
            QVERIFY(s.view != nullptr);
            const auto names = Names(s.view);
            QVERIFY(names.size() > 10);
            for (const auto& [field, name] : names) {
                if (qEnvironmentVariableIsSet("PENDULON_SHOW_NAMES"))
                    qInfo("%s %s: \"%s\"", device, qPrintable(field), qPrintable(name));
                const QString where = QString("%1 %2: \"%3\"").arg(device, field, name);
                QVERIFY2(!name.trimmed().isEmpty(), qPrintable(where + " has no name"));
                QVERIFY2(!bareNumber.match(name).hasMatch(), qPrintable(where + " is a number"));
            }
        }
    }

    void theNamesReadAsTheLabelsDo() {
        {
            DocumentFixture f;
            ShownDocument<Configurator, ConfiguratorView> s(f, 1400, 1000, "QX5140");
            QCOMPARE(NameOf(s.view->findChild<QWidget*>("txtClkA(0)")),
                     QString("CLKA Desired (MHz)"));
        }
        for (const char* device : {"QX7311", "QX7312F"}) {
            DocumentFixture f;
            ShownDocument<Configurator, ConfiguratorView> s(f, 1400, 1000, device);
            QCOMPARE(NameOf(s.view->findChild<QWidget*>("cboCPLLData(0)")),
                     QString("CPLL[0] PLL Data"));
            QCOMPARE(NameOf(s.view->findChild<QWidget*>("cboCPLLData(7)")),
                     QString("CPLL[7] PLL Data"));
        }
    }
};

QObject* MakeAccessibleNamesTest() {
    return new AccessibleNamesTest;
}

}  // namespace pendulon::test

#include "AccessibleNamesTest.moc"
