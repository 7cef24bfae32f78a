// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "AccessibilityPage.h"

#include "FormRow.h"
#include "ScreenReader.h"

#include "KestCircleProgressBar.h"
#include "KestComboBox.h"
#include "KestIPAddressEdit.h"
#include "KestMessageBox.h"
#include "KestStageProgressBar.h"
#include "KestSwitchButton.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QVBoxLayout>

namespace {

const int MostLines = 200; // of announcements

} // namespace

AccessibilityPage::AccessibilityPage(QWidget *parent)
    : QWidget(parent), m_reader(new ScreenReader(this)), m_log(new QListWidget)
{
    setWindowTitle(tr("Accessibility"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(createSamples(), 0, 0);
    layout->addWidget(createReport(), 0, 1);
    auto *announcements = new QGroupBox(tr("Announcements"));
    auto *column = new QVBoxLayout(announcements);
    column->addWidget(m_log);
    m_reader->ignore(announcements);
    layout->addWidget(announcements, 1, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(1, 1);

    m_log->setObjectName(QStringLiteral("announcements"));
    m_log->setAccessibleName(tr("Announcements"));
    connect(m_reader, &ScreenReader::heard, this, &AccessibilityPage::note);
    connect(qApp, &QApplication::focusChanged, this, &AccessibilityPage::describeFocus);
}

void AccessibilityPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_reader->setActive(true);
    describeFocus();
}

void AccessibilityPage::hideEvent(QHideEvent *event)
{
    m_reader->setActive(false);
    QWidget::hideEvent(event);
}

// Names come from the labels of the rows, and where there is none from setAccessibleName().
QWidget *AccessibilityPage::createSamples()
{
    auto *box = new QGroupBox(tr("Move the focus and change values"));
    box->setStyleSheet(QStringLiteral("QGroupBox { background: white } QLabel { color: #24292F }"));
    auto *form = new QFormLayout(box);
    auto *night = new KestSwitchButton;
    night->setFixedSize(48, 24);
    addFormRow(form, tr("Night mode"), night);
    auto *address = new KestIPAddressEdit;
    address->setIPAddress(QStringLiteral("192.168.0.1"));
    addFormRow(form, tr("Address"), address);
    auto *fruit = new KestComboBox;
    fruit->addItems({ tr("Apple"), tr("Banana"), tr("Cherry") });
    addFormRow(form, tr("Fruit"), fruit);

    auto *circle = new KestCircleProgressBar;
    circle->setAccessibleName(tr("Download"));
    circle->setMinimumSize(72, 72);
    auto *stages = new KestStageProgressBar;
    stages->setAccessibleName(tr("Order"));
    stages->setStyleSheet(
        QStringLiteral("KestStageProgressBar { background-color: #A9B2BD; padding: 0px 2px }"));
    stages->setRange(circle->minimum(), circle->maximum());
    stages->setValue(circle->value());
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(circle->minimum(), circle->maximum());
    slider->setValue(circle->value());
    connect(slider, &QSlider::valueChanged, circle, &KestCircleProgressBar::setValue);
    connect(slider, &QSlider::valueChanged, stages, &KestStageProgressBar::setValue);
    addFormRow(form, tr("Progress"), slider);
    form->addRow(circle);
    form->addRow(stages);

    auto *ask = new QPushButton(tr("Show a message"));
    ask->setObjectName(QStringLiteral("showMessage"));
    connect(ask, &QPushButton::clicked, this, [this] {
        KestMessageBox::information(window(), tr("Message"), tr("The report was saved."));
    });
    form->addRow(ask);
    return box;
}

QWidget *AccessibilityPage::createReport()
{
    auto *box = new QGroupBox(tr("The widget with the focus"));
    box->setObjectName(QStringLiteral("focusReport"));
    m_reader->ignore(box);
    auto *form = new QFormLayout(box);
    const QStringList questions = ScreenReader::questions();
    for (const QString &question : questions) {
        auto *answer = new QLabel;
        answer->setObjectName(question);
        answer->setWordWrap(true);
        form->addRow(question, answer);
        m_answers.append(answer);
    }
    return box;
}

void AccessibilityPage::note(const QString &announcement)
{
    m_log->addItem(announcement);
    if (m_log->count() > MostLines)
        delete m_log->takeItem(0);
    m_log->scrollToBottom();
    describeFocus();
}

void AccessibilityPage::describeFocus()
{
    QWidget *const focus = QApplication::focusWidget();
    QAccessibleInterface *told = focus ? QAccessible::queryAccessibleInterface(focus) : nullptr;
    if (!isVisible() || !told)
        return;
    const auto *list = qobject_cast<QListView *>(focus);
    if (list && list->currentIndex().isValid()) // the item is what is read
        told = told->tableInterface()->cellAt(list->currentIndex().row(), 0);
    const QStringList answers = ScreenReader::answersOf(told);
    for (int i = 0; i < answers.size(); ++i)
        m_answers.at(i)->setText(answers.at(i));
}
