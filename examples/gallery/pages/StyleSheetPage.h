// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef STYLESHEETPAGE_H
#define STYLESHEETPAGE_H

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPlainTextEdit;
class QSpinBox;

/*! An editor of the application's style sheet that shows each change at once: begins with one of
   the library's sheets or a file, and saves what came of it. */
class StyleSheetPage : public QWidget
{
    Q_OBJECT

public:
    explicit StyleSheetPage(QWidget *parent = nullptr);

    /*! Shows what the application looks like now; tells of nothing. */
    void showLook(const QString &sheet, int percent, double pointSize);

Q_SIGNALS:
    /*! Emitted a moment after the last of a row of changes, for sheets that can be read alone. */
    void sheetEdited(const QString &sheet);
    void scaleChosen(int percent);
    void fontSizeChosen(double pointSize);

private:
    QWidget *createControls();
    void choose(int index);
    void open();
    void save();
    void warn(const QString &text, const QString &reason);
    void tryOut();

    QComboBox *m_sheets;
    QSpinBox *m_scale;
    QDoubleSpinBox *m_fontSize;
    QPlainTextEdit *m_editor;
    QLabel *m_state;
    QTimer m_pause;
    QString m_shown; // the sheet that the application has
};

#endif // STYLESHEETPAGE_H
