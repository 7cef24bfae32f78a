// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PageList.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

PageList::PageList(QWidget *parent)
    : QWidget(parent),
      m_field(new QLineEdit),
      m_list(new QListWidget),
      m_nothing(new QLabel(tr("No page has that.")))
{
    setObjectName(QStringLiteral("pages"));
    m_field->setObjectName(QStringLiteral("pageSearch"));
    m_field->setPlaceholderText(tr("Search"));
    m_field->setAccessibleName(tr("Search the pages"));
    m_field->setClearButtonEnabled(true);
    m_field->installEventFilter(this);
    m_list->setObjectName(QStringLiteral("pageList"));
    m_list->setAccessibleName(tr("Pages"));
    m_list->setStyleSheet(
        QStringLiteral("QListWidget { border: none }"
                       "QListWidget::item { min-height: 32px; padding-left: 12px; }"));
    m_nothing->setObjectName(QStringLiteral("nothingFound"));
    m_nothing->setMargin(12);
    m_nothing->hide();
    setStyleSheet(QStringLiteral("#pages { background: white; border-right: 1px solid #D9D9D9 }"
                                 "#nothingFound { color: #333333 }"));
    setAttribute(Qt::WA_StyledBackground);
    connect(m_field, &QLineEdit::textChanged, this, &PageList::search);
    connect(m_list, &QListWidget::currentRowChanged, this, &PageList::currentPageChanged);

    auto *search = new QVBoxLayout;
    search->setContentsMargins(8, 8, 8, 6);
    search->addWidget(m_field);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 1, 0); // the line on the right
    layout->setSpacing(0);
    layout->addLayout(search);
    layout->addWidget(m_nothing);
    layout->addWidget(m_list, 1);
}

void PageList::addPage(const QString &name, const QStringList &words)
{
    m_list->addItem(name);
    m_words.append(words);
}

int PageList::currentPage() const
{
    return m_list->currentRow();
}

void PageList::setCurrentPage(int index)
{
    m_list->setCurrentRow(index);
}

void PageList::choose(const QString &name)
{
    m_list->setCurrentItem(m_list->findItems(name, Qt::MatchExactly).constFirst());
}

void PageList::step(int pages)
{
    m_list->setCurrentRow(qBound(0, m_list->currentRow() + pages, m_list->count() - 1));
}

void PageList::takeFocus()
{
    m_list->setFocus(Qt::OtherFocusReason);
}

void PageList::startSearch()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

bool PageList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        if (m_nothing->isHidden())
            m_list->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Escape:
        m_field->clear();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void PageList::search(const QString &text)
{
    const QString wanted = text.trimmed();
    QListWidgetItem *first = nullptr;
    bool firstByName = false;
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *const item = m_list->item(row);
        const bool byName = item->text().contains(wanted, Qt::CaseInsensitive);
        const bool found = byName || !m_words.at(row).filter(wanted, Qt::CaseInsensitive).isEmpty();
        item->setHidden(!found);
        if (found && (!first || (byName && !firstByName))) {
            first = item;
            firstByName = byName;
        }
    }
    m_nothing->setVisible(!first);
    if (first && !wanted.isEmpty())
        m_list->setCurrentItem(first);
}
