// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestUserButton.h"

#include "RecordingStyle.h"

#include <QtGui/QIcon>
#include <QtTest/QTest>

#include <limits>

namespace {

// An icon of one colour for each mode and state.
QIcon colorfulIcon()
{
    QIcon icon;
    const auto add = [&icon](const QColor &color, QIcon::Mode mode, QIcon::State state) {
        QPixmap pixmap(16, 16);
        pixmap.fill(color);
        icon.addPixmap(pixmap, mode, state);
    };
    add(Qt::red, QIcon::Normal, QIcon::Off);
    add(Qt::darkRed, QIcon::Normal, QIcon::On);
    add(Qt::green, QIcon::Active, QIcon::Off);
    add(Qt::blue, QIcon::Disabled, QIcon::Off);
    return icon;
}

class Button : public KestUserButton
{
public:
    Button()
    {
        setIcon(colorfulIcon());
        setIconSize(QSize(16, 16));
        setText(QStringLiteral("Ann"));
        resize(120, 48);
    }

    QStyleOptionToolButton option() const
    {
        QStyleOptionToolButton result;
        initStyleOption(&result);
        return result;
    }

    using KestUserButton::doIconRect;
    using KestUserButton::doTextRect;
};

} // namespace

class tst_KestUserButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textStandsRightOfTheIcon();
    void rectanglesLieInTheContents();
    void iconWithoutTextFillsTheContentsHeight();
    void sizeHintAddsIconGapAndText();
    void withoutSheetBothStandInTheMiddle();
    void rightToLeftIsMirrored();
    void rightToLeftKeepsToUnevenContents();
    void hugeIconSizeDoesNoHarm();
    void panelHasNeitherIconNorText();
    void iconAndTextAreCentredInTheirRectangles();
    void iconModeFollowsTheState();
    void largeIconIsBoundedByTheButton();
    void textHasTheSheetsColor();
};

void tst_KestUserButton::textStandsRightOfTheIcon()
{
    Button button;
    RecordingStyle style;
    style.frameContents = QRect(10, 12, 100, 20);
    button.setStyle(&style);
    const QStyleOptionToolButton option = button.option();
    const QRect text = option.fontMetrics.boundingRect(style.frameContents, Qt::TextDontClip,
                                                       QStringLiteral("Ann"));
    QCOMPARE(button.doTextRect(option),
             QRect(10 + 16 + 5, text.top(), text.width(), text.height()));
    QCOMPARE(button.doIconRect(option), QRect(10, text.top(), 16, text.height()));
}

void tst_KestUserButton::rectanglesLieInTheContents()
{
    Button button;
    button.setStyleSheet(
        QStringLiteral("KestUserButton { border: 2px solid black; padding: 11px 13px; }"));
    const QStyleOptionToolButton option = button.option();
    QCOMPARE(button.doIconRect(option).left(), 15);
    QCOMPARE(button.doTextRect(option).left(), 15 + 16 + 5);
    QCOMPARE(button.doTextRect(option).top(), 13);
}

void tst_KestUserButton::iconWithoutTextFillsTheContentsHeight()
{
    Button button;
    RecordingStyle style;
    style.frameContents = QRect(10, 12, 100, 20);
    button.setStyle(&style);
    button.setText(QString());
    QCOMPARE(button.doIconRect(button.option()), QRect(10, 12, 16, 20));
}

void tst_KestUserButton::sizeHintAddsIconGapAndText()
{
    Button button;
    RecordingStyle style;
    style.frameContents = QRect(10, 12, 90, 20);
    button.setStyle(&style);
    const int text = button.doTextRect(button.option()).width();
    QCOMPARE(button.sizeHint(), QSize((120 - 90) + 16 + 5 + text, -1));
    QCOMPARE(button.minimumSizeHint(), button.sizeHint());
    for (const int width : { 24, 1, 0 }) {
        button.setIconSize(QSize(width, 24));
        QCOMPARE(button.sizeHint().width(), (120 - 90) + width + 5 + text);
    }
}

void tst_KestUserButton::withoutSheetBothStandInTheMiddle()
{
    Button button;
    const QStyleOptionToolButton option = button.option();
    QCOMPARE(button.doIconRect(option).left(), 0);
    QVERIFY(qAbs(button.doIconRect(option).center().y() - 23) <= 2);
    QVERIFY(qAbs(button.doTextRect(option).center().y() - 23) <= 2);
    // A high icon makes the line high.
    button.setText(QString());
    button.setIconSize(QSize(16, 40));
    QCOMPARE(button.doIconRect(button.option()), QRect(0, 4, 16, 40));
    // The hint does not grow with the button.
    const QSize hint = button.sizeHint();
    button.resize(400, 48);
    QCOMPARE(button.sizeHint(), hint);
}

void tst_KestUserButton::rightToLeftIsMirrored()
{
    Button button;
    RecordingStyle style;
    // Not in the middle of the button: it is the contents that are mirrored.
    style.frameContents = QRect(10, 12, 90, 20);
    button.setStyle(&style);
    const QRect icon = button.doIconRect(button.option());
    const QRect text = button.doTextRect(button.option());
    QCOMPARE(icon.left(), 10);
    QCOMPARE(text.left(), 10 + 16 + 5);
    button.setLayoutDirection(Qt::RightToLeft);
    const QRect mirroredIcon(100 - 16, icon.y(), 16, icon.height());
    const QRect mirroredText(100 - 16 - 5 - text.width(), text.y(), text.width(), text.height());
    QCOMPARE(button.doIconRect(button.option()), mirroredIcon);
    QCOMPARE(button.doTextRect(button.option()), mirroredText);
    button.grab();
    QCOMPARE(style.pixmapRect, mirroredIcon);
    QCOMPARE(style.textRect, mirroredText);
}

void tst_KestUserButton::rightToLeftKeepsToUnevenContents()
{
    Button button;
    button.setStyleSheet(
        QStringLiteral("KestUserButton { border: none; padding: 3px 30px 3px 10px; }"));
    const QRect icon = button.doIconRect(button.option());
    const QRect text = button.doTextRect(button.option());
    QCOMPARE(icon.left(), 10);
    button.setLayoutDirection(Qt::RightToLeft);
    // A style sheet's padding is mirrored with the button.
    QCOMPARE(button.doIconRect(button.option()).right(), 119 - 10);
    QCOMPARE(button.doTextRect(button.option()).right(), 119 - text.left());
    RecordingStyle style;
    style.frameContents = QRect(10, 12, 80, 20);
    Button plain;
    plain.setStyle(&style);
    plain.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(plain.doIconRect(plain.option()).right(), style.frameContents.right());
    QCOMPARE(plain.doTextRect(plain.option()).right(), style.frameContents.right() - 16 - 5);
}

void tst_KestUserButton::hugeIconSizeDoesNoHarm()
{
    Button button;
    for (const int size : { std::numeric_limits<int>::max(), std::numeric_limits<int>::min() }) {
        button.setIconSize(QSize(size, size));
        QVERIFY(button.sizeHint().width() >= 0);
        button.grab();
    }
}

void tst_KestUserButton::panelHasNeitherIconNorText()
{
    Button button;
    RecordingStyle style;
    button.setStyle(&style);
    button.grab();
    QCOMPARE(style.complexControl, QStyle::CC_ToolButton);
    QVERIFY(style.toolButton.icon.isNull());
    QCOMPARE(style.toolButton.text, QString());
}

void tst_KestUserButton::iconAndTextAreCentredInTheirRectangles()
{
    Button button;
    RecordingStyle style;
    style.frameContents = QRect(10, 12, 100, 20);
    button.setStyle(&style);
    for (const bool enabled : { true, false }) {
        button.setEnabled(enabled);
        button.grab();
        QCOMPARE(style.pixmapRect, button.doIconRect(button.option()));
        QCOMPARE(style.pixmapAlignment, int(Qt::AlignCenter));
        QCOMPARE(style.textRect, button.doTextRect(button.option()));
        QCOMPARE(style.textFlags, int(Qt::AlignCenter));
        QCOMPARE(style.drawnText, QStringLiteral("Ann"));
        QCOMPARE(style.textEnabled, enabled);
        QCOMPARE(style.textRole, QPalette::NoRole);
    }
}

void tst_KestUserButton::iconModeFollowsTheState()
{
    Button button;
    RecordingStyle style;
    style.frameContents = QRect(10, 12, 100, 20);
    button.setStyle(&style);
    const auto color = [&button] {
        const QPoint middle = button.doIconRect(button.option()).center();
        return button.grab().toImage().pixelColor(middle);
    };
    QCOMPARE(color(), QColor(Qt::red));
    button.setAttribute(Qt::WA_UnderMouse);
    QCOMPARE(color(), QColor(Qt::red)); // a hovered button that is not raised by it
    button.setAutoRaise(true);
    QCOMPARE(color(), QColor(Qt::green));
    button.setAttribute(Qt::WA_UnderMouse, false);
    QCOMPARE(color(), QColor(Qt::red));
    button.setCheckable(true);
    button.setChecked(true);
    QCOMPARE(color(), QColor(Qt::darkRed));
    button.setChecked(false);
    button.setEnabled(false);
    QCOMPARE(color(), QColor(Qt::blue));
}

void tst_KestUserButton::largeIconIsBoundedByTheButton()
{
    Button button;
    RecordingStyle style;
    button.setStyle(&style);
    QPixmap large(200, 200);
    large.fill(Qt::red);
    button.setIcon(QIcon(large));
    button.setIconSize(QSize(200, 200));
    button.grab();
    QCOMPARE(style.pixmapSize, QSize(48, 48));
}

void tst_KestUserButton::textHasTheSheetsColor()
{
    Button button;
    button.setIcon(QIcon());
    button.setText(QStringLiteral("MMMM"));
    // In lines so thick that some pixels are all of the color.
    button.setStyleSheet(
        QStringLiteral("KestUserButton { color: #00FF00; background: #000000; padding: 10px; "
                       "font: bold 24px }"));
    const QImage image = button.grab().toImage();
    const QRect rect = button.doTextRect(button.option());
    bool found = false;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            found = found || image.pixelColor(x, y) == QColor(0, 255, 0);
    }
    QVERIFY(found);
}

QTEST_MAIN(tst_KestUserButton)
#include "tst_kestuserbutton.moc"
