// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestApplication.h"
#include "KestMessageBox.h"

#include <QtTest/QTest>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QPushButton>

// The words of Qt's own catalogue, as it is delivered, on the buttons of the library's dialogs.
class tst_StandardButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttonsAreInTheLanguage_data();
    void buttonsAreInTheLanguage();
    void openBoxFollowsTheLanguage();
};

namespace {

using Box = KestMessageBox;

const Box::StandardButtons Buttons = Box::Ok | Box::Cancel | Box::Yes | Box::No | Box::Save
    | Box::Discard | Box::Abort | Box::Retry | Box::Ignore;

KestApplication *app()
{
    return static_cast<KestApplication *>(QCoreApplication::instance());
}

// The captions without their mnemonics, in the order of Buttons.
QStringList captionsOf(const Box &box)
{
    QStringList captions;
    for (const Box::StandardButton which : { Box::Ok, Box::Cancel, Box::Yes, Box::No, Box::Save,
                                             Box::Discard, Box::Abort, Box::Retry, Box::Ignore }) {
        const auto *buttons = box.findChild<QDialogButtonBox *>();
        const auto standard = QDialogButtonBox::StandardButton(int(which));
        captions.append(buttons->button(standard)->text().remove(QLatin1Char('&')));
    }
    return captions;
}

const char *const German[] = { "OK",        "Abbrechen", "Ja",          "Nein",      "Speichern",
                               "Verwerfen", "Abbrechen", "Wiederholen", "Ignorieren" };
const char *const English[] = { "OK",      "Cancel", "Yes",   "No",    "Save",
                                "Discard", "Abort",  "Retry", "Ignore" };

QStringList listOf(const char *const (&texts)[9])
{
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

} // namespace

void tst_StandardButtons::buttonsAreInTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("captions");
    QTest::newRow("German") << QStringLiteral("de") << listOf(German);
    QTest::newRow("of Austria") << QStringLiteral("de_AT") << listOf(German);
    QTest::newRow("English again") << QStringLiteral("en") << listOf(English);
}

void tst_StandardButtons::buttonsAreInTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QStringList, captions);
    app()->loadTranslator(language);
    const Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"), Buttons);
    QCOMPARE(captionsOf(box), captions);

    // Each has room for its word, as far as a screen has it for all of them.
    Box question(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"),
                 Box::Save | Box::Discard | Box::Cancel);
    question.show();
    const QList<QPushButton *> buttons =
        question.findChild<QDialogButtonBox *>()->findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 3);
    for (const QPushButton *button : buttons)
        QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
}

void tst_StandardButtons::openBoxFollowsTheLanguage()
{
    app()->loadTranslator(QStringLiteral("en"));
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"), Buttons);
    box.show();
    QCOMPARE(captionsOf(box), listOf(English));
    app()->loadTranslator(QStringLiteral("de"));
    QCoreApplication::processEvents();
    QCOMPARE(captionsOf(box), listOf(German));
}

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
    tst_StandardButtons test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_standardbuttons.moc"
