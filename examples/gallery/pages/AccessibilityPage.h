// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef ACCESSIBILITYPAGE_H
#define ACCESSIBILITYPAGE_H

#include <QtWidgets/QWidget>

class QFormLayout;
class QLabel;
class QListWidget;
class ScreenReader;

/*! What a screen reader is told, live: of the widget that has the focus, wherever it is, and of
   what happens. */
class AccessibilityPage : public QWidget
{
    Q_OBJECT

public:
    explicit AccessibilityPage(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *createSamples();
    QWidget *createReport();
    void note(const QString &announcement);
    void describeFocus();

    ScreenReader *m_reader;
    QList<QLabel *> m_answers;
    QListWidget *m_log;
};

#endif // ACCESSIBILITYPAGE_H
