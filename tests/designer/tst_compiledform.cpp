// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "FormChecks.h"

#include "ui_dialogform.h"
#include "ui_windowform.h"

class tst_CompiledForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowIsWhatItsFormSays();
    void dialogIsWhatItsFormSays();
    void formsAreMadeOfSubclassesToo();
};

void tst_CompiledForm::windowIsWhatItsFormSays()
{
    KestWindow window;
    Ui::WindowForm form;
    form.setupUi(&window);
    QCOMPARE(window.centralWidget(), form.page);
    checkWindowForm(&window);
}

void tst_CompiledForm::dialogIsWhatItsFormSays()
{
    KestDialog dialog;
    Ui::DialogForm form;
    form.setupUi(&dialog);
    QCOMPARE(dialog.centralWidget(), form.page);
    checkDialogForm(&dialog);
}

// As programs do: the class is the form's, by inheritance.
void tst_CompiledForm::formsAreMadeOfSubclassesToo()
{
    class Window : public KestWindow, public Ui::WindowForm
    {
    public:
        Window() { setupUi(this); }
    };
    Window window;
    checkWindowForm(&window);
}

QTEST_MAIN(tst_CompiledForm)
#include "tst_compiledform.moc"
