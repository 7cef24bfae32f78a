// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "SourcePane.h"

#include "CodeEdit.h"
#include "CodeHighlighter.h"

#include <QtCore/QFile>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

QString fileOf(const QWidget *page)
{
    return QString::fromLatin1(page->metaObject()->className()) + QStringLiteral(".cpp");
}

} // namespace

// Outside of all namespaces; from a static library resources come only where they are asked for.
static void initSources()
{
    Q_INIT_RESOURCE(gallery);
}

SourcePane::SourcePane(QWidget *parent) : QWidget(parent), m_file(new QLabel), m_text(new CodeEdit)
{
    m_text->setObjectName(QStringLiteral("source"));
    m_text->setAccessibleName(tr("Source of the page"));
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    new CodeHighlighter(m_text->document());

    auto *copyButton = new QPushButton(tr("&Copy"));
    copyButton->setObjectName(QStringLiteral("copySource"));
    copyButton->setToolTip(tr("Put the source on the clipboard"));
    connect(copyButton, &QPushButton::clicked, this, &SourcePane::copy);

    auto *head = new QHBoxLayout;
    head->addWidget(m_file, 1);
    head->addWidget(copyButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(m_text, 1);
}

QString SourcePane::sourceOf(const QWidget *page)
{
    initSources();
    QFile file(QStringLiteral(":/gallery/pages/") + fileOf(page));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    const QString text = QString::fromUtf8(file.readAll());
    return text.mid(qMax(0, text.indexOf(QStringLiteral("#include"))));
}

void SourcePane::showSourceOf(const QWidget *page)
{
    m_file->setText(fileOf(page));
    m_text->setPlainText(sourceOf(page));
}

void SourcePane::copy()
{
    QGuiApplication::clipboard()->setText(m_text->toPlainText());
    Q_EMIT copied(m_file->text());
}
