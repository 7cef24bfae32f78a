// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStyleSheet.h"
#include "TestedQt.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QtMath>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QWidget>

#include <limits>

namespace {

// Scaling as a search and replace loop: slow, and short enough to be seen to be right.
QString scaledStepByStep(const QString &sheet, float rate)
{
    if (sheet.isEmpty() || rate == 1.0f)
        return sheet;

    QString copy = sheet;
    LengthFinder length;
    int start = 0;
    int position = 0;
    while ((position = length.indexIn(copy, start)) != -1) {
        const int digits = length.matchedLength() - 2;
        const float product = copy.mid(position, digits).toInt() * rate;
        QString number;
        if (product >= 2147483648.0f)
            number = QString::number(std::numeric_limits<int>::max());
        else if (product < -2147483648.0f)
            number = QString::number(std::numeric_limits<int>::min());
        else
            number = QString::number(product < 0 ? qFloor(product + 0.5) : qRound(product));
        copy.replace(position, digits, number);
        const int end = position + number.size();
        if (end >= copy.size() - 1)
            break;
        start = end + 1;
    }
    return copy;
}

QString fileText(const char *name)
{
    QFile file(QStringLiteral(":/stylesheet/Resources/stylesheet/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QString randomSheet(QRandomGenerator &random)
{
    // Pieces that are lengths, nearly lengths, or glue; joined at random they also make runs of
    // digits that no piece has.
    static const QStringList pieces {
        QStringLiteral("1px"),
        QStringLiteral("10px"),
        QStringLiteral("007px"),
        QStringLiteral("1.5px"),
        QStringLiteral("3PX"),
        QStringLiteral("4Px"),
        QStringLiteral("5pX"),
        QStringLiteral("12pt"),
        QStringLiteral("2em"),
        QStringLiteral("px"),
        QStringLiteral("p"),
        QStringLiteral("x"),
        QStringLiteral("7"),
        QStringLiteral("99999999999px"),
        QStringLiteral("2147483647px"),
        QStringLiteral("2147483648px"),
        QStringLiteral("16777217px"),
        QString::fromUtf8("\u0663\u0664px"), // Arabic-Indic digits
        QString::fromUtf8("1\u0969px"), // a Latin and a Devanagari digit
        QString::fromUtf8("\uFF15px"), // a full-width digit
        QString::fromUtf8("\u00B2px"), // superscript two is no decimal digit
        QString::fromUtf8("\u00BDpx"), // nor is one half
        QString::fromUtf8("\U0001D7D8px"), // nor a digit outside the basic plane
        QString(QChar(0)),
        QStringLiteral("-"),
        QStringLiteral(" "),
        QStringLiteral(";"),
        QStringLiteral("{ margin: "),
        QStringLiteral("#w8px"),
        QStringLiteral("pxpx"),
        QStringLiteral("6p"),
        QStringLiteral("8ppx"),
    };
    QString sheet;
    const int count = random.bounded(1, 40);
    for (int i = 0; i < count; ++i)
        sheet += pieces.at(random.bounded(pieces.size()));
    return sheet;
}

// Builds a further child the first time its style changes, as widgets that build parts lazily do.
class GrowingWidget : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange && !m_grown) {
            m_grown = true;
            auto *sibling = new QWidget(parentWidget());
            sibling->setObjectName(QStringLiteral("late"));
            sibling->setStyleSheet(QStringLiteral("margin: 2px"));
        }
        QWidget::changeEvent(event);
    }

private:
    bool m_grown = false;
};

class DyingWidget : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void changeEvent(QEvent *event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::StyleChange && m_armed)
            delete m_victim;
    }

public:
    bool m_armed = false;
    QWidget *m_victim = nullptr;
};

// Keeps its unscaled sheet itself.
class SheetKeeper : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString originStyle READ originStyle WRITE setOriginStyle)

public:
    explicit SheetKeeper(const QString &origin, QWidget *parent) : QWidget(parent), m_origin(origin)
    { }

    QString originStyle() const { return m_origin; }
    void setOriginStyle(const QString &origin) { m_origin = origin; }

private:
    QString m_origin;
};

// Writes down which dynamic properties of a widget change, and what its sheet is then.
class PropertyRecorder : public QObject
{
public:
    QStringList changes;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange) {
            const QByteArray name =
                static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
            changes += QString::fromLatin1(name) + QLatin1Char('=')
                + object->property(name.constData()).toString() + QLatin1Char('|')
                + static_cast<QWidget *>(object)->styleSheet();
        }
        return false;
    }
};

// Deletes a widget when the one that it filters hears of a property.
class Killer : public QObject
{
public:
    explicit Killer(QWidget *victim, const char *property = "geoRate")
        : m_victim(victim), m_property(property)
    { }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange
            || static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() != m_property)
            return false;
        delete m_victim;
        return true;
    }

private:
    const QPointer<QWidget> m_victim;
    const QByteArray m_property;
};

class StyleChangeCounter : public QObject
{
public:
    int changes = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            ++changes;
        return false;
    }
};

} // namespace

class tst_KestStyleSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultSheetJoinsTheTwoLightSheets();

    void lengthsAreScaled_data();
    void lengthsAreScaled();
    void emptySheetStaysEmpty();
    void rateOneGivesTheSheetItself();
    void randomSheetsAgreeWithSearchAndReplace();
    void shippedSheetsAgreeWithSearchAndReplace_data();
    void shippedSheetsAgreeWithSearchAndReplace();

    void walkScalesAllWidgetsBelowTheObject();
    void walkLeavesTheObjectItselfAlone();
    void walkSkipsObjectsThatAreNoWidgets();
    void ratesDoNotAccumulate();
    void rateOneBringsTheOriginalSheetsBack();
    void rateOneStillRecordsSheetAndRate();
    void sameRateAgainPolishesNothing();
    void sameRateAgainPutsAChangedSheetBack();
    void widgetWithoutSheetKeepsAnEmptyOne();
    void sheetSetAfterTheFirstScalingIsReplacedByTheOriginal();
    void fontsAreNotScaled();
    void childrenAddedOnTheWayAreScaledToo();
    void childrenThatDieOnTheWayAreLeftOut();
    void nullObjectIsIgnored();
    void classMayDeclareTheSavedSheet();
    void everyWidgetHasItsOwnSheetScaled();
    void propertiesAreWrittenRateFirst();
    void otherPropertiesOfAWidgetChangeNothing();
    void valueWithoutATextIsNoMissingSheet();
    void walkGoesBelowWidgetsWithoutSheets();
    void windowsAmongTheChildrenAreScaledToo();
    void rateIsNotRounded();
    void savedSheetOfAnotherTypeIsReadAsText();
    void rateIsStoredAsItWasGiven();
    void emptyOriginalLeavesALaterSheetAlone();
    void parentMayDieOnTheWay();
    void widgetMayDieOnTheWay_data();
    void widgetMayDieOnTheWay();
};

void tst_KestStyleSheet::defaultSheetJoinsTheTwoLightSheets()
{
    const QString first = fileText("default-light.css");
    const QString second = fileText("sw-light.css");
    QVERIFY(!first.isEmpty());
    QVERIFY(!second.isEmpty());
    QCOMPARE(KestStyleSheet::defaultStyleSheet(), first + second);
    QCOMPARE(KestStyleSheet::defaultStyleSheet(), first + second);
}

void tst_KestStyleSheet::lengthsAreScaled_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<float>("rate");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *sheet, float rate, const char *expected) {
        QTest::newRow(name) << QString::fromUtf8(sheet) << rate << QString::fromUtf8(expected);
    };
    row("halves go up", "border: 1px; width: 10px", 1.5f, "border: 2px; width: 15px");
    row("capitals keep their case", "margin: 3PX", 2.0f, "margin: 6PX");
    row("mixed case", "a: 3Px; b: 3pX", 2.0f, "a: 6Px; b: 6pX");
    row("only the digits before the unit", "width: 1.5px", 2.0f, "width: 1.10px");
    row("other units", "font: 12pt; margin: 2em; x: 7", 2.0f, "font: 12pt; margin: 2em; x: 7");
    row("down to nothing", "border: 1px", 0.4f, "border: 0px");
    row("a half goes up to one", "border: 1px", 0.5f, "border: 1px");
    row("rate zero", "border: 3px", 0.0f, "border: 0px");
    row("negative rate", "margin: 3px", -2.0f, "margin: -6px");
    row("negative half goes up", "margin: 3px", -0.5f, "margin: -1px");
    row("negative length", "margin: -3px", 2.0f, "margin: -6px");
    row("leading zeros go", "margin: 007px", 2.0f, "margin: 14px");
    row("digits at the very end", "margin: 3px; order: 12", 2.0f, "margin: 6px; order: 12");
    row("half a unit at the very end", "margin: 3px 12p", 2.0f, "margin: 6px 12p");
    row("the length alone", "3px", 2.0f, "6px");
    row("unit without digits", "px 3 px", 2.0f, "px 3 px");
    row("all digits", "98px 76px 54px 32px 10px", 2.0f, "196px 152px 108px 64px 20px");
    row("neighbours of the digits", "a:px /px", 2.0f, "a:px /px");
    row("one after the other", "1px2px3px", 2.0f, "2px4px6px");
    row("number too long for an integer", "99999999999px", 2.0f, "0px");
    row("largest integer", "2147483647px", 0.5f, "1073741824px");
    row("one above the largest", "2147483648px", 0.5f, "0px");
    row("product just above the range", "1073741824px", 2.0f, "2147483647px");
    row("product at the end of the range", "1073741824px", -2.0f, "-2147483648px");
    row("product above the range", "2000000000px", 2.0f, "2147483647px");
    row("product below the range", "2000000000px", -2.0f, "-2147483648px");
    row("not a number", "3px", std::numeric_limits<float>::quiet_NaN(), "0px");
    row("infinite", "3px", std::numeric_limits<float>::infinity(), "2147483647px");
    row("other scripts' digits are no integer", "\u0663\u0664px", 2.0f, "0px");
    row("a superscript is no digit", "1\u00B2px", 2.0f, "1\u00B2px");
    row("ten times as long", QByteArray(1000, '.').replace(".", "1px ").constData(), 2e9f,
        QByteArray(1000, '.').replace(".", "2000000000px ").constData());
    row("inside names as well", "#size8px { }", 2.0f, "#size16px { }");
}

void tst_KestStyleSheet::lengthsAreScaled()
{
    QFETCH(QString, sheet);
    QFETCH(float, rate);
    QFETCH(QString, expected);
    QCOMPARE(KestStyleSheet::scaleSheet(sheet, rate), expected);
}

void tst_KestStyleSheet::emptySheetStaysEmpty()
{
    QCOMPARE(KestStyleSheet::scaleSheet(QString(), 2.0f), QString());
    QVERIFY(KestStyleSheet::scaleSheet(QString(), 2.0f).isNull());
    QVERIFY(!KestStyleSheet::scaleSheet(QStringLiteral(""), 2.0f).isNull());
}

void tst_KestStyleSheet::rateOneGivesTheSheetItself()
{
    // One that is shared with nobody yet, as a literal may not be.
    const QString sheet = QString::fromLatin1("margin: 007px");
    QCOMPARE(KestStyleSheet::scaleSheet(sheet, 1.0f), sheet);
    QVERIFY(KestStyleSheet::scaleSheet(sheet, 1.0f).isSharedWith(sheet));
}

void tst_KestStyleSheet::randomSheetsAgreeWithSearchAndReplace()
{
    QRandomGenerator random(20061);
    const float rates[] = { 0.0f, 0.3f, 0.5f,  1.0f,  1.25f, 1.5f, 1.75f,
                            2.0f, 3.7f, -1.0f, -0.5f, -2.5f, 1e9f, -1e9f };
    for (int i = 0; i < 20000; ++i) {
        const QString sheet = randomSheet(random);
        const float rate = rates[random.bounded(int(std::size(rates)))];
        const QString expected = scaledStepByStep(sheet, rate);
        if (KestStyleSheet::scaleSheet(sheet, rate) != expected)
            QCOMPARE(KestStyleSheet::scaleSheet(sheet, rate) + sheet, expected + sheet);
    }
}

void tst_KestStyleSheet::shippedSheetsAgreeWithSearchAndReplace_data()
{
    QTest::addColumn<QString>("sheet");
    for (const char *name : { "default-light.css", "sw-light.css", "tool.css", "kest-blue.css" })
        QTest::newRow(name) << fileText(name);
}

void tst_KestStyleSheet::shippedSheetsAgreeWithSearchAndReplace()
{
    QFETCH(QString, sheet);
    QVERIFY(!sheet.isEmpty());
    for (const float rate : { 0.75f, 1.25f, 1.5f, 2.0f }) {
        QCOMPARE(KestStyleSheet::scaleSheet(sheet, rate), scaledStepByStep(sheet, rate));
        QVERIFY(KestStyleSheet::scaleSheet(sheet, rate) != sheet);
    }
}

void tst_KestStyleSheet::walkScalesAllWidgetsBelowTheObject()
{
    QWidget top;
    QWidget child(&top);
    QWidget grandchild(&child);
    child.setStyleSheet(QStringLiteral("margin: 2px"));
    grandchild.setStyleSheet(QStringLiteral("margin: 5px"));

    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 3.0);

    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(grandchild.styleSheet(), QStringLiteral("margin: 8px"));
    QCOMPARE(child.property("originStyle").toString(), QStringLiteral("margin: 2px"));
    QCOMPARE(grandchild.property("originStyle").toString(), QStringLiteral("margin: 5px"));
    QCOMPARE(child.property("geoRate"), QVariant(1.5));
    QCOMPARE(grandchild.property("geoRate"), QVariant(1.5));
}

void tst_KestStyleSheet::walkLeavesTheObjectItselfAlone()
{
    QWidget top;
    top.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 2.0);
    QCOMPARE(top.styleSheet(), QStringLiteral("margin: 2px"));
    QVERIFY(top.dynamicPropertyNames().isEmpty());
}

void tst_KestStyleSheet::walkSkipsObjectsThatAreNoWidgets()
{
    QWidget top;
    QObject plain(&top);
    QWidget after(&top);
    after.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 2.0);
    QVERIFY(plain.dynamicPropertyNames().isEmpty());
    QCOMPARE(after.styleSheet(), QStringLiteral("margin: 4px"));
}

void tst_KestStyleSheet::ratesDoNotAccumulate()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 100px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.25, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 125px"));
    QCOMPARE(child.property("geoRate"), QVariant(1.25));
    QCOMPARE(child.property("originStyle").toString(), QStringLiteral("margin: 100px"));
}

void tst_KestStyleSheet::rateOneBringsTheOriginalSheetsBack()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 3px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.0, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
}

void tst_KestStyleSheet::rateOneStillRecordsSheetAndRate()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 3px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.0, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(child.property("originStyle").toString(), QStringLiteral("margin: 3px"));
    QCOMPARE(child.property("geoRate"), QVariant(1.0));
}

void tst_KestStyleSheet::sameRateAgainPolishesNothing()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 2px"));
    child.ensurePolished();
    StyleChangeCounter counter;
    child.installEventFilter(&counter);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QVERIFY(counter.changes > 0);
    counter.changes = 0;
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(counter.changes, 0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
}

void tst_KestStyleSheet::sameRateAgainPutsAChangedSheetBack()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    child.setStyleSheet(QStringLiteral("margin: 7px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
    child.setProperty("originStyle", QStringLiteral("margin: 20px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 30px"));
}

void tst_KestStyleSheet::widgetWithoutSheetKeepsAnEmptyOne()
{
    QWidget top;
    QWidget child(&top);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(child.styleSheet(), QString());
    QVERIFY(child.property("originStyle").isValid());
    QCOMPARE(child.property("originStyle").type(), QVariant::String);
    QCOMPARE(child.property("originStyle").toString(), QString());
    QCOMPARE(child.property("geoRate"), QVariant(1.5));
}

void tst_KestStyleSheet::sheetSetAfterTheFirstScalingIsReplacedByTheOriginal()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 4px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    child.setStyleSheet(QStringLiteral("margin: 100px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 8px"));
}

void tst_KestStyleSheet::fontsAreNotScaled()
{
    QWidget top;
    QPushButton child(&top);
    const QFont font = child.font();
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 2.0);
    QCOMPARE(child.font(), font);
}

void tst_KestStyleSheet::childrenAddedOnTheWayAreScaledToo()
{
    QWidget top;
    GrowingWidget child(&top);
    // The first sheet is set on the widget by the walk's property only, so that it grows there.
    child.setProperty("originStyle", QStringLiteral("margin: 1px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    const auto *late = top.findChild<QWidget *>(QStringLiteral("late"));
    QVERIFY(late);
    QCOMPARE(late->styleSheet(), QStringLiteral("margin: 4px"));
}

void tst_KestStyleSheet::childrenThatDieOnTheWayAreLeftOut()
{
    QWidget top;
    DyingWidget killer(&top);
    auto *victim = new QWidget(&killer);
    auto *last = new QWidget(&top);
    last->setStyleSheet(QStringLiteral("margin: 1px"));
    top.ensurePolished();
    killer.ensurePolished();
    killer.setProperty("originStyle", QStringLiteral("margin: 1px"));
    killer.m_victim = victim;
    killer.m_armed = true;
    const QPointer<QWidget> watch(victim);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QVERIFY(watch.isNull());
    QCOMPARE(last->styleSheet(), QStringLiteral("margin: 2px"));
    killer.m_armed = false;
}

void tst_KestStyleSheet::nullObjectIsIgnored()
{
    KestStyleSheet::ChangeObjectSizeAndFontSize(nullptr, 2.0, 2.0);
}

void tst_KestStyleSheet::classMayDeclareTheSavedSheet()
{
    QWidget top;
    QWidget before(&top);
    SheetKeeper keeper(QStringLiteral("margin: 4px"), &top);
    SheetKeeper empty(QString(), &top);
    QWidget after(&top);
    before.setStyleSheet(QStringLiteral("margin: 1px"));
    keeper.setStyleSheet(QStringLiteral("margin: 100px"));
    empty.setStyleSheet(QStringLiteral("margin: 3px"));
    after.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QCOMPARE(before.styleSheet(), QStringLiteral("margin: 2px"));
    QCOMPARE(keeper.styleSheet(), QStringLiteral("margin: 8px"));
    QCOMPARE(keeper.originStyle(), QStringLiteral("margin: 4px"));
    QCOMPARE(keeper.dynamicPropertyNames(), QList<QByteArray>() << "geoRate");
    QCOMPARE(empty.styleSheet(), QStringLiteral("margin: 6px"));
    QCOMPARE(empty.originStyle(), QStringLiteral("margin: 3px"));
    QCOMPARE(after.styleSheet(), QStringLiteral("margin: 4px"));
    QCOMPARE(after.dynamicPropertyNames(),
             QList<QByteArray>() << "geoRate"
                                 << "originStyle");
}

void tst_KestStyleSheet::everyWidgetHasItsOwnSheetScaled()
{
    QWidget top;
    const QStringList sheets { QStringLiteral("margin: 1px"), QStringLiteral("margin: 1px"),
                               QStringLiteral("margin: 5px"), QString(),
                               QStringLiteral("margin: 1px"), QStringLiteral("margin: 5px") };
    QList<QWidget *> children;
    for (const QString &sheet : sheets) {
        children.append(new QWidget(&top));
        children.last()->setStyleSheet(sheet);
    }
    for (const double rate : { 2.0, 3.0 }) {
        KestStyleSheet::ChangeObjectSizeAndFontSize(&top, rate, 1.0);
        for (int i = 0; i < sheets.size(); ++i) {
            QCOMPARE(children.at(i)->styleSheet(),
                     KestStyleSheet::scaleSheet(sheets.at(i), float(rate)));
            QCOMPARE(children.at(i)->property("originStyle").toString(), sheets.at(i));
        }
    }
}

void tst_KestStyleSheet::propertiesAreWrittenRateFirst()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 2px"));
    PropertyRecorder recorder;
    child.installEventFilter(&recorder);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(recorder.changes,
             QStringList() << QStringLiteral("geoRate=1.5|margin: 2px")
                           << QStringLiteral("originStyle=margin: 2px|margin: 2px"));
    recorder.changes.clear();
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(recorder.changes, QStringList());
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QCOMPARE(recorder.changes, QStringList() << QStringLiteral("geoRate=2|margin: 3px"));
}

void tst_KestStyleSheet::otherPropertiesOfAWidgetChangeNothing()
{
    QWidget top;
    QWidget child(&top);
    child.setProperty("origin", 1);
    child.setProperty("originStyles", QStringLiteral("margin: 9px"));
    child.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(child.property("originStyle"), QVariant(QStringLiteral("margin: 2px")));
}

void tst_KestStyleSheet::valueWithoutATextIsNoMissingSheet()
{
    QWidget top;
    QWidget child(&top);
    const QVariant value(QSize(1, 2));
    child.setProperty("originStyle", value);
    child.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 2px"));
    QCOMPARE(child.property("originStyle"), value);
}

void tst_KestStyleSheet::walkGoesBelowWidgetsWithoutSheets()
{
    QWidget top;
    QWidget plain(&top);
    QWidget plainBelow(&plain);
    QWidget below(&plainBelow);
    below.setStyleSheet(QStringLiteral("margin: 2px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(below.styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(plainBelow.property("geoRate"), QVariant(1.5));
}

void tst_KestStyleSheet::windowsAmongTheChildrenAreScaledToo()
{
    QWidget top;
    QWidget window(&top, Qt::Window);
    QWidget below(&window);
    window.setStyleSheet(QStringLiteral("margin: 2px"));
    below.setStyleSheet(QStringLiteral("margin: 4px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(window.styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(below.styleSheet(), QStringLiteral("margin: 6px"));
}

void tst_KestStyleSheet::rateIsNotRounded()
{
    QWidget top;
    QWidget child(&top);
    child.setStyleSheet(QStringLiteral("margin: 10000px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.2345, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 12345px"));
}

void tst_KestStyleSheet::savedSheetOfAnotherTypeIsReadAsText()
{
    QWidget top;
    QWidget child(&top);
    child.setProperty("originStyle", QByteArray("margin: 2px"));
    child.setStyleSheet(QStringLiteral("margin: 7px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.5, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(child.property("originStyle"), QVariant(QByteArray("margin: 2px")));
}

void tst_KestStyleSheet::rateIsStoredAsItWasGiven()
{
    QWidget top;
    QWidget child(&top);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 1.1, 1.0);
    QCOMPARE(child.property("geoRate").userType(), int(QMetaType::Double));
    QVERIFY(child.property("geoRate").toDouble() == 1.1);
}

void tst_KestStyleSheet::emptyOriginalLeavesALaterSheetAlone()
{
    QWidget top;
    QWidget child(&top);
    child.setProperty("originStyle", QStringLiteral(""));
    child.setStyleSheet(QStringLiteral("margin: 4px"));
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QCOMPARE(child.styleSheet(), QStringLiteral("margin: 4px"));
}

void tst_KestStyleSheet::parentMayDieOnTheWay()
{
    QWidget top;
    auto *box = new QWidget(&top);
    auto *first = new QWidget(box);
    const QPointer<QWidget> second(new QWidget(box));
    const QWidget takesItsPlace(&top);
    QWidget last(&top);
    Killer killer(box);
    first->installEventFilter(&killer);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QVERIFY(second.isNull());
    QCOMPARE(last.property("geoRate"), QVariant(2.0));

    // The object that was asked for, too.
    auto *asked = new QWidget;
    auto *child = new QWidget(asked);
    new QWidget(asked);
    Killer killerOfAsked(asked);
    child->installEventFilter(&killerOfAsked);
    KestStyleSheet::ChangeObjectSizeAndFontSize(asked, 2.0, 1.0);
}

void tst_KestStyleSheet::widgetMayDieOnTheWay_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("sheet");
    for (const char *property : { "geoRate", "originStyle" }) {
        QTest::addRow("%s, sheet", property)
            << QByteArray(property) << QStringLiteral("margin: 1px");
        QTest::addRow("%s, no sheet", property) << QByteArray(property) << QString();
    }
}

void tst_KestStyleSheet::widgetMayDieOnTheWay()
{
    QFETCH(QByteArray, property);
    QFETCH(QString, sheet);
    QWidget top;
    const QPointer<QWidget> mortal(new QWidget(&top));
    new QWidget(mortal);
    const QWidget takesItsPlace(&top);
    const QWidget last(&top);
    mortal->setStyleSheet(sheet);
    Killer killer(mortal, property.constData());
    mortal->installEventFilter(&killer);
    KestStyleSheet::ChangeObjectSizeAndFontSize(&top, 2.0, 1.0);
    QVERIFY(mortal.isNull());
    QCOMPARE(last.property("geoRate"), QVariant(2.0));
}

QTEST_MAIN(tst_KestStyleSheet)
#include "tst_keststylesheet.moc"
