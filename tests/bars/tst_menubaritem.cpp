// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MenuBarItem.h"

#include <QtTest/QTest>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QToolButton>

class tst_MenuBarItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leftToRightHintIsTheMenuBarsOwn();
    void rightToLeftHintIsThatOfLeftToRight_data();
    void rightToLeftHintIsThatOfLeftToRight();
    void rightToLeftHintKnowsTheStylesMargins_data();
    void rightToLeftHintKnowsTheStylesMargins();
    void hintKeepsToTheMaximum();
    void minimumFollowsThePolicy();
    void emptyAndHiddenMenuBarsTakeNoPlace();
};

namespace {

// A shown menu bar with three menus.
class Host : public QWidget
{
public:
    explicit Host(Qt::LayoutDirection direction) : menuBar(new QMenuBar(this)), item(menuBar)
    {
        setLayoutDirection(direction);
        for (const char *title : { "File", "Appearance", "?" })
            menuBar->addMenu(QLatin1String(title));
        menuBar->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        resize(800, 60);
        show();
    }

    QMenuBar *menuBar;
    MenuBarItem item;
};

} // namespace

void tst_MenuBarItem::leftToRightHintIsTheMenuBarsOwn()
{
    Host host(Qt::LeftToRight);
    const QWidgetItem own(host.menuBar);
    for (const int width : { 40, 300, 700 }) {
        host.menuBar->resize(width, 30);
        QCOMPARE(host.item.sizeHint(), own.sizeHint());
        QCOMPARE(host.item.minimumSize(), own.minimumSize());
    }
}

void tst_MenuBarItem::rightToLeftHintIsThatOfLeftToRight_data()
{
    QTest::addColumn<int>("corner"); // its width, 0 for none
    QTest::addColumn<bool>("visible");
    QTest::newRow("no corner") << 0 << false;
    QTest::newRow("corner") << 37 << true;
    QTest::newRow("hidden corner") << 37 << false;
}

void tst_MenuBarItem::rightToLeftHintIsThatOfLeftToRight()
{
    QFETCH(int, corner);
    QFETCH(bool, visible);
    const auto hint = [&](Qt::LayoutDirection direction, int width) {
        Host host(direction);
        if (corner > 0) {
            auto *button = new QToolButton;
            button->setFixedSize(corner, 20);
            host.menuBar->setCornerWidget(button, Qt::TopLeftCorner);
            button->setVisible(visible);
        }
        host.menuBar->resize(width, 30);
        return host.item.sizeHint();
    };
    const QSize expected = hint(Qt::LeftToRight, 700);
    for (const int width : { 300, 500, 700 })
        QCOMPARE(hint(Qt::RightToLeft, width), expected);
}

void tst_MenuBarItem::rightToLeftHintKnowsTheStylesMargins_data()
{
    QTest::addColumn<int>("metric");
    QTest::addColumn<bool>("corner");
    for (const bool corner : { false, true }) {
        const char *const suffix = corner ? ", corner" : "";
        QTest::addRow("panel%s", suffix) << int(QStyle::PM_MenuBarPanelWidth) << corner;
        QTest::addRow("spacing%s", suffix) << int(QStyle::PM_MenuBarItemSpacing) << corner;
        QTest::addRow("margin%s", suffix) << int(QStyle::PM_MenuBarHMargin) << corner;
    }
}

void tst_MenuBarItem::rightToLeftHintKnowsTheStylesMargins()
{
    class Style : public QProxyStyle
    {
    public:
        explicit Style(int wide) : m_wide(wide) { }
        int pixelMetric(PixelMetric metric, const QStyleOption *option,
                        const QWidget *widget) const override
        {
            return int(metric) == m_wide ? 11 : QProxyStyle::pixelMetric(metric, option, widget);
        }

    private:
        const int m_wide;
    };
    QFETCH(int, metric);
    QFETCH(bool, corner);
    Style style(metric);
    const auto hint = [&](Qt::LayoutDirection direction, int width) {
        Host host(direction);
        host.menuBar->setStyle(&style);
        if (corner) {
            auto *button = new QToolButton;
            button->setFixedSize(37, 20);
            host.menuBar->setCornerWidget(button, Qt::TopLeftCorner);
            button->show();
        }
        host.menuBar->resize(width, 30);
        return host.item.sizeHint();
    };
    const QSize expected = hint(Qt::LeftToRight, 700);
    for (const int width : { 300, 500, 700 })
        QCOMPARE(hint(Qt::RightToLeft, width), expected);
}

void tst_MenuBarItem::hintKeepsToTheMaximum()
{
    Host host(Qt::RightToLeft);
    host.menuBar->setMaximumWidth(90);
    QCOMPARE(host.item.sizeHint().width(), 90);
}

void tst_MenuBarItem::minimumFollowsThePolicy()
{
    Host host(Qt::RightToLeft);
    host.menuBar->resize(400, 30);
    const QWidgetItem own(host.menuBar);
    QVERIFY(host.item.sizeHint() != own.sizeHint());
    QCOMPARE(host.item.minimumSize().width(), host.item.sizeHint().width());
    host.menuBar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    QCOMPARE(host.item.minimumSize(), own.minimumSize());
    host.menuBar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QCOMPARE(host.item.minimumSize().width(), host.item.sizeHint().width());
}

void tst_MenuBarItem::emptyAndHiddenMenuBarsTakeNoPlace()
{
    Host host(Qt::RightToLeft);
    const QWidgetItem own(host.menuBar);
    host.menuBar->resize(400, 30);
    QVERIFY(host.item.sizeHint().width() > 0);
    host.menuBar->hide();
    QCOMPARE(host.item.sizeHint(), QSize(0, 0));
    QCOMPARE(host.item.minimumSize(), QSize(0, 0));
    host.menuBar->show();
    host.menuBar->clear();
    QCOMPARE(host.item.sizeHint(), own.sizeHint());
}

QTEST_MAIN(tst_MenuBarItem)
#include "tst_menubaritem.moc"
