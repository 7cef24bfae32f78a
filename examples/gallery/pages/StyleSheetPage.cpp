// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "StyleSheetPage.h"

#include "CodeEdit.h"
#include "FormRow.h"
#include "Theme.h"

#include "KestMessageBox.h"

#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace {

const int PauseMs = 400; // long enough to type on, short enough to be live

} // namespace

StyleSheetPage::StyleSheetPage(QWidget *parent)
    : QWidget(parent),
      m_sheets(new QComboBox),
      m_scale(new QSpinBox),
      m_fontSize(new QDoubleSpinBox),
      m_editor(new CodeEdit),
      m_state(new QLabel)
{
    setWindowTitle(tr("Style sheet"));
    m_editor->setObjectName(QStringLiteral("sheetEditor"));
    m_editor->setAccessibleName(tr("Style sheet"));
    m_state->setObjectName(QStringLiteral("sheetState"));
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseMs);
    connect(&m_pause, &QTimer::timeout, this, &StyleSheetPage::tryOut);
    connect(m_editor, &QPlainTextEdit::textChanged, &m_pause, qOverload<>(&QTimer::start));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(10);
    layout->addWidget(createControls());
    layout->addWidget(m_editor, 1);
    layout->addWidget(m_state);
}

QWidget *StyleSheetPage::createControls()
{
    m_sheets->setObjectName(QStringLiteral("sheets"));
    m_sheets->setPlaceholderText(tr("A sheet of your own"));
    const QList<Theme> sheets = Theme::sheets();
    for (const Theme &sheet : sheets)
        m_sheets->addItem(sheet.name, sheet.sheet);
    connect(m_sheets, qOverload<int>(&QComboBox::activated), this, &StyleSheetPage::choose);
    m_scale->setObjectName(QStringLiteral("sheetScale"));
    m_scale->setRange(75, 200);
    m_scale->setSingleStep(25);
    m_scale->setSuffix(tr(" %"));
    m_scale->setKeyboardTracking(false); // 1 and 15 are on the way to 150
    connect(m_scale, qOverload<int>(&QSpinBox::valueChanged), this, &StyleSheetPage::scaleChosen);
    m_fontSize->setObjectName(QStringLiteral("fontSize"));
    m_fontSize->setRange(6, 24);
    m_fontSize->setDecimals(1);
    m_fontSize->setSuffix(tr(" pt"));
    m_fontSize->setKeyboardTracking(false);
    connect(m_fontSize, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &StyleSheetPage::fontSizeChosen);
    auto *openButton = new QPushButton(tr("&Open ..."));
    openButton->setObjectName(QStringLiteral("openSheet"));
    connect(openButton, &QPushButton::clicked, this, &StyleSheetPage::open);
    auto *saveButton = new QPushButton(tr("Save &as ..."));
    saveButton->setObjectName(QStringLiteral("saveSheet"));
    connect(saveButton, &QPushButton::clicked, this, &StyleSheetPage::save);

    auto *controls = new QWidget;
    auto *form = new QFormLayout(controls);
    form->setContentsMargins(0, 0, 0, 0);
    addFormRow(form, tr("She&et"), m_sheets);
    addFormRow(form, tr("Sca&le"), m_scale);
    addFormRow(form, tr("Fo&nt size"), m_fontSize);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(openButton);
    buttons->addWidget(saveButton);
    buttons->addStretch(1);
    form->addRow(buttons);
    return controls;
}

void StyleSheetPage::showLook(const QString &sheet, int percent, double pointSize)
{
    const QSignalBlocker quietScale(m_scale);
    m_scale->setValue(percent);
    const QSignalBlocker quietFont(m_fontSize);
    m_fontSize->setValue(pointSize);
    m_sheets->setCurrentIndex(m_sheets->findData(sheet));
    if (sheet == m_shown)
        return; // and what is being typed stays
    m_shown = sheet;
    m_editor->setPlainText(sheet);
    m_pause.stop();
    m_state->setText(tr("Each change is shown at once."));
}

void StyleSheetPage::choose(int index)
{
    m_editor->setPlainText(m_sheets->itemData(index).toString());
    tryOut();
}

void StyleSheetPage::open()
{
    const QString name = QFileDialog::getOpenFileName(window(), tr("Open a style sheet"), QString(),
                                                      tr("Style sheets (*.css *.qss)"));
    if (name.isEmpty())
        return;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        warn(tr("The style sheet could not be opened:\n%1"), file.errorString());
        return;
    }
    m_editor->setPlainText(QString::fromUtf8(file.readAll()));
    tryOut();
}

void StyleSheetPage::save()
{
    const QString name =
        QFileDialog::getSaveFileName(window(), tr("Save the style sheet"),
                                     QStringLiteral("theme.css"), tr("Style sheets (*.css *.qss)"));
    if (name.isEmpty())
        return;
    QSaveFile file(name);
    file.open(QIODevice::WriteOnly);
    file.write(m_editor->toPlainText().toUtf8());
    if (!file.commit())
        warn(tr("The style sheet could not be saved:\n%1"), file.errorString());
    else
        m_state->setText(tr("Saved to %1.").arg(name));
}

void StyleSheetPage::warn(const QString &text, const QString &reason)
{
    KestMessageBox::warning(window(), tr("Style sheet"), text.arg(reason));
}

void StyleSheetPage::tryOut()
{
    m_pause.stop();
    const QString sheet = m_editor->toPlainText();
    if (sheet == m_shown)
        return;
    if (!Theme::canRead(sheet)) {
        m_state->setText(tr("Qt cannot read this yet; the last sheet that it could is shown."));
        return;
    }
    m_shown = sheet;
    m_sheets->setCurrentIndex(m_sheets->findData(sheet));
    m_state->setText(tr("Each change is shown at once."));
    Q_EMIT sheetEdited(sheet);
}
