// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MessageBoxPage.h"

#include "KestColor.h"
#include "KestMessageBox.h"

#include <QtCore/QMetaEnum>
#include <QtGui/QPixmap>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

using Box = KestMessageBox;
using Page = MessageBoxPage;

struct Kind
{
    const char *name;
    decltype(&Box::information) function;
    Box::Icon icon;
    const char *text;
};

const Kind kinds[] = {
    { QT_TRANSLATE_NOOP("MessageBoxPage", "Information"), &Box::information, Box::Information,
      QT_TRANSLATE_NOOP("MessageBoxPage", "The report was saved.") },
    { QT_TRANSLATE_NOOP("MessageBoxPage", "Warning"), &Box::warning, Box::Warning,
      QT_TRANSLATE_NOOP("MessageBoxPage", "The disk is nearly full.") },
    { QT_TRANSLATE_NOOP("MessageBoxPage", "Critical"), &Box::critical, Box::Critical,
      QT_TRANSLATE_NOOP("MessageBoxPage", "The connection was lost.") },
    { QT_TRANSLATE_NOOP("MessageBoxPage", "Question"), &Box::question, Box::Question,
      QT_TRANSLATE_NOOP("MessageBoxPage",
                        "Do you want to save the changes before you close the "
                        "document? They will be lost otherwise.") },
};

const Box::StandardButtons buttonSets[] = { Box::Ok, Box::Ok | Box::Cancel, Box::Yes | Box::No,
                                            Box::Save | Box::Discard | Box::Cancel,
                                            Box::Abort | Box::Retry | Box::Ignore };

QPixmap ownPixmap()
{
    QPixmap pixmap(48, 48);
    pixmap.fill(KestColor::generateBackgroundColor(12));
    return pixmap;
}

void addOwnButtons(Box *box)
{
    box->setWindowTitle(Page::tr("Print"));
    box->setText(Page::tr("Where shall the report go?"));
    box->setIconPixmap(ownPixmap());
    box->addButton(Page::tr("&Printer"), Box::AcceptRole);
    box->addButton(Page::tr("&File"), Box::AcceptRole);
    box->addButton(Page::tr("&Nowhere"), Box::RejectRole);
}

} // namespace

MessageBoxPage::MessageBoxPage(QWidget *parent) : QWidget(parent), m_answer(new QLabel)
{
    setWindowTitle(tr("Message box"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 20, 16, 20);
    layout->setSpacing(14);
    auto *grid = new QGridLayout;
    grid->setSpacing(6);
    const QMetaEnum names = QMetaEnum::fromType<Box::StandardButtons>();
    for (int row = 0; row < int(std::size(buttonSets)); ++row) {
        const QString text = QString::fromLatin1(names.valueToKeys(int(buttonSets[row])))
                                 .replace(QLatin1Char('|'), QStringLiteral(" · "));
        grid->addWidget(new QLabel(text), row, 0);
        for (int column = 0; column < int(std::size(kinds)); ++column) {
            auto *button = new QPushButton(tr(kinds[column].name));
            button->setAccessibleDescription(text);
            connect(button, &QPushButton::clicked, this, [this, row, column] { ask(column, row); });
            grid->addWidget(button, row, column + 1);
        }
    }
    layout->addLayout(grid);
    auto *own = new QPushButton(tr("Buttons and a pixmap of one's own"));
    connect(own, &QPushButton::clicked, this, &MessageBoxPage::askWithOwnButtons);
    layout->addWidget(own, 0, Qt::AlignLeft);
    m_answer->setText(tr("No answer yet."));
    layout->addWidget(m_answer);
    layout->addStretch(1);
}

QList<QDialog *> MessageBoxPage::createDialogs(QWidget *parent)
{
    QList<QDialog *> boxes;
    for (int i = 0; i < int(std::size(kinds)); ++i) {
        boxes.append(
            new Box(kinds[i].icon, tr(kinds[i].name), tr(kinds[i].text), buttonSets[i], parent));
    }
    auto *own = new Box(parent);
    addOwnButtons(own);
    boxes.append(own);
    return boxes;
}

void MessageBoxPage::ask(int function, int buttons)
{
    const Kind &kind = kinds[function];
    const Box::StandardButton answer =
        kind.function(window(), tr(kind.name), tr(kind.text), buttonSets[buttons], Box::NoButton);
    const QMetaEnum names = QMetaEnum::fromType<Box::StandardButtons>();
    m_answer->setText(tr("Answer: %1").arg(QLatin1String(names.valueToKey(answer))));
}

void MessageBoxPage::askWithOwnButtons()
{
    Box box(window());
    addOwnButtons(&box);
    box.exec();
    m_answer->setText(box.clickedButton() ? tr("Answer: %1").arg(box.clickedButton()->text())
                                          : tr("Closed without an answer."));
}
