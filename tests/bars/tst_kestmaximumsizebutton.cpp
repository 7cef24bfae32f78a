// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestMaximumSizeButton.h"

#include "RecordingStyle.h"

#include <QtCore/QPointer>
#include <QtTest/QTest>

class tst_KestMaximumSizeButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsNotMaximised();
    void propertyIsNamedInLowerCase();
    void everySetIsPolishedAnew();
    void sheetSelectsOnTheProperty();
    void styleMayDeleteTheButton();
};

void tst_KestMaximumSizeButton::startsNotMaximised()
{
    QVERIFY(!KestMaximumSizeButton().maximumSized());
}

void tst_KestMaximumSizeButton::propertyIsNamedInLowerCase()
{
    KestMaximumSizeButton button;
    QVERIFY(button.setProperty("maximumsized", true));
    QVERIFY(button.maximumSized());
    button.setMaximumSized(false);
    QCOMPARE(button.property("maximumsized"), QVariant(false));
    QVERIFY(button.dynamicPropertyNames().isEmpty());
}

void tst_KestMaximumSizeButton::everySetIsPolishedAnew()
{
    RecordingStyle style;
    KestMaximumSizeButton button;
    button.setStyle(&style);
    style.polished.clear();
    style.unpolished.clear();
    for (int i = 1; i <= 2; ++i) {
        button.setMaximumSized(true); // also when it is set already
        QCOMPARE(style.polished.size(), i);
        QCOMPARE(style.unpolished.size(), i);
    }
}

void tst_KestMaximumSizeButton::sheetSelectsOnTheProperty()
{
    KestMaximumSizeButton button;
    button.setStyleSheet(QStringLiteral("QPushButton { border: none }"
                                        "QPushButton[maximumsized=true] { background: #010203 }"
                                        "QPushButton[maximumsized=false] { background: #040506 }"));
    button.resize(20, 20);
    QCOMPARE(button.grab().toImage().pixelColor(10, 10), QColor(4, 5, 6));
    button.setMaximumSized(true);
    QCOMPARE(button.grab().toImage().pixelColor(10, 10), QColor(1, 2, 3));
}

void tst_KestMaximumSizeButton::styleMayDeleteTheButton()
{
    class Style : public QProxyStyle
    {
    public:
        using QProxyStyle::polish;
        using QProxyStyle::unpolish;
        void polish(QWidget *widget) override
        {
            if (deadly == Polish)
                delete widget;
        }
        void unpolish(QWidget *widget) override
        {
            if (deadly == Unpolish)
                delete widget;
        }

        enum Call { None, Unpolish, Polish };
        Call deadly = None;
    };
    for (const Style::Call call : { Style::Unpolish, Style::Polish }) {
        Style style;
        const QPointer<KestMaximumSizeButton> button(new KestMaximumSizeButton);
        button->setStyle(&style);
        style.deadly = call;
        button->setMaximumSized(true);
        QVERIFY(button.isNull());
    }
}

QTEST_MAIN(tst_KestMaximumSizeButton)
#include "tst_kestmaximumsizebutton.moc"
