// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include "KestLoadingDialog.h"
#include "KestMessageBox.h"

#include <QtWidgets/QColorDialog>
#include <QtWidgets/QErrorMessage>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFontDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QWizard>

namespace {

using namespace Poses;

QWidget *createMessageBox()
{
    return new QMessageBox(QMessageBox::Warning, QStringLiteral("Title"),
                           QStringLiteral("Save the changes?"),
                           QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
}

QWidget *createKestMessageBox()
{
    return new KestMessageBox(KestMessageBox::Warning, QStringLiteral("Title"),
                              QStringLiteral("Save the changes?"),
                              KestMessageBox::Save | KestMessageBox::Cancel);
}

QWidget *createWizard(QWizard::WizardStyle style)
{
    auto *wizard = new QWizard;
    wizard->setWizardStyle(style);
    for (const char *name : { "First page", "Second page" }) {
        auto *page = new QWizardPage;
        page->setTitle(QString::fromLatin1(name));
        page->setSubTitle(QStringLiteral("What the page is for"));
        wizard->addPage(page);
    }
    wizard->setOption(QWizard::HaveHelpButton);
    return wizard;
}

QWidget *createInputDialog()
{
    auto *dialog = new QInputDialog;
    dialog->setLabelText(QStringLiteral("Name:"));
    dialog->setTextValue(QStringLiteral("Text"));
    return dialog;
}

QWidget *createProgressDialog()
{
    auto *dialog = new QProgressDialog(QStringLiteral("Copying"), QStringLiteral("Cancel"), 0, 100);
    dialog->setValue(40);
    return dialog;
}

QWidget *createErrorMessage()
{
    auto *dialog = new QErrorMessage;
    dialog->showMessage(QStringLiteral("Something failed."));
    return dialog;
}

// Qt's own dialogs, not those of the desktop.
QWidget *createFileDialog()
{
    auto *dialog = new QFileDialog(nullptr, QString(), QStringLiteral(":/"));
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    return dialog;
}

QWidget *createColorDialog()
{
    auto *dialog = new QColorDialog;
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    return dialog;
}

QWidget *createFontDialog()
{
    auto *dialog = new QFontDialog(QFont(QStringLiteral("DejaVu Sans"), 9));
    dialog->setOption(QFontDialog::DontUseNativeDialog);
    return dialog;
}

} // namespace

QVector<Specimen> Specimens::dialogs()
{
    const QVector<SpecimenState> shown { normalState() };
    return {
        { QStringLiteral("QMessageBox"), createMessageBox, shown },
        { QStringLiteral("KestMessageBox"), createKestMessageBox, shown },
        { QStringLiteral("QInputDialog"), createInputDialog, shown },
        { QStringLiteral("QProgressDialog"), createProgressDialog, shown },
        { QStringLiteral("QErrorMessage"), createErrorMessage, shown },
        { QStringLiteral("QWizard modern"), [] { return createWizard(QWizard::ModernStyle); },
          shown },
        { QStringLiteral("QWizard classic"), [] { return createWizard(QWizard::ClassicStyle); },
          shown },
        { QStringLiteral("QFileDialog"), createFileDialog, shown },
        { QStringLiteral("QColorDialog"), createColorDialog, shown },
        { QStringLiteral("QFontDialog"), createFontDialog, shown },
    };
}
