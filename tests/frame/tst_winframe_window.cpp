#include <QtTest/QTest>
class tst_WinFrame_Window : public QObject { Q_OBJECT
private Q_SLOTS: void x() {} };
QTEST_MAIN(tst_WinFrame_Window)
#include "tst_winframe_window.moc"
