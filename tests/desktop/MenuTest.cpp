#include <QTest>

#include "DesktopTests.hpp"

namespace pendulon::test {

class MenuTest : public QObject {
    Q_OBJECT
private slots:
};

QObject* MakeMenuTest() { return new MenuTest; }

}  // namespace pendulon::test

#include "MenuTest.moc"
