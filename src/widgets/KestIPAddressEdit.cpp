// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestIPAddressEdit.h"

#include "KestAccessibleIPAddressEdit.h"
#include "KestIPAddressEdit_p.h"

#include <QAction>
#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextOption>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFrame>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

const int LargestNumber = 255;

// The room for a section, and for an address. The NUL at their end is measured as well: it stands
// for the room that the cursor needs behind the digits.
QString sectionTemplate()
{
    return QStringLiteral(" 000") + QChar();
}

QString addressTemplate()
{
    return QStringLiteral(" 000 . 000 . 000 . 000") + QChar();
}

// Text that is no number counts as 0: it is the user's to correct.
bool isAccepted(const QString &text)
{
    return text.isEmpty() || uint(text.toInt()) <= uint(LargestNumber);
}

bool isSection(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return text.length() <= SectionLength && isNumber && uint(number) <= uint(LargestNumber);
}

// A host's range may be any.
int toInt(qint64 number)
{
    return int(std::clamp<qint64>(number, std::numeric_limits<int>::min(),
                                  std::numeric_limits<int>::max()));
}

QTextCharFormat highlight(const QPalette &palette)
{
    QTextCharFormat format;
    format.setBackground(palette.brush(QPalette::Highlight));
    format.setForeground(palette.brush(QPalette::HighlightedText));
    return format;
}

// Whether a key is one that the edit takes as text.
bool isTyping(const QKeyEvent *event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const int key = event->key();
    return (key >= Qt::Key_0 && key <= Qt::Key_9) || key == Qt::Key_Backspace
        || key == Qt::Key_Delete || event->text() == Dot;
}

// Where the sections are. They are packed from the left, also in right-to-left layouts.
class Sections
{
public:
    // The widths are a copy, since the style may delete the edit.
    Sections(const QWidget *edit, const QStyleOptionFrame &option,
             KestIPAddressEditPrivate::Widths widths)
        : m_dotWidth(widths.dot)
    {
        const int height = edit->height();
        m_first = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
        if (!m_first.isValid()) {
            m_first.setLeft(0);
            m_first.setTop(0);
            m_first.setBottom(height - 1);
        }
        m_first.setWidth(widths.section);
    }

    int dotWidth() const { return m_dotWidth; }
    QRect rect(int section) const
    {
        return m_first.translated(section * (m_dotWidth + m_first.width()), 0);
    }

private:
    QRect m_first;
    int m_dotWidth;
};

} // namespace

QTextLayout::FormatRange createFormatRange(int a, int b, const QPalette &palette)
{
    const int first = positionInSection(a);
    const int second = positionInSection(b);
    QTextLayout::FormatRange range;
    range.start = std::min(first, second);
    range.length = std::max(first, second) - range.start;
    range.format = highlight(palette);
    return range;
}

int moveFormatRange(QTextLayout::FormatRange &range, int from, int to)
{
    const int moved = positionInSection(from);
    const int target = positionInSection(to);
    const qint64 end = qint64(range.start) + range.length;
    int anchor = moved;
    if (moved == range.start)
        anchor = toInt(end);
    else if (moved == end)
        anchor = range.start;
    range.start = std::min(anchor, target);
    range.length = toInt(qint64(std::max(anchor, target)) - range.start);
    return target;
}

// What the text cursor is painted in, with a pixel around it for antialiasing. The style is asked
// for it, and may delete the edit.
QRect KestIPAddressEditPrivate::cursorRect() const
{
    const QPointer<KestIPAddressEdit> guard(q);
    const int section = q->sectionOfCursorPosition(cursorPosition);
    const QRect rect = q->rectOfIpSection(section);
    if (!guard)
        return QRect();
    const QRect bounds = q->boundRect(section, rect);
    const QTextLine line = layouts[size_t(section)].lineAt(0);
    const qreal x = line.cursorToX(positionInSection(cursorPosition));
    const QRectF cursor(bounds.left() + x, bounds.top() + cursorAscentOffset, 1, line.height());
    return cursor.toAlignedRect().adjusted(-1, -1, 1, 1);
}

// Every paint needs them, and only another font changes them.
KestIPAddressEditPrivate::Widths KestIPAddressEditPrivate::widths(const QFontMetrics &metrics) const
{
    if (knownWidths.section == 0 || measuredIn != metrics) {
        knownWidths.section = metrics.boundingRect(sectionTemplate()).width();
        knownWidths.dot = metrics.boundingRect(Dot).width();
        measuredIn = metrics;
    }
    return knownWidths;
}

// As text at the beginning of a rectangle that is as wide as the dot's ink, and cuts the rest off.
void KestIPAddressEditPrivate::paintDot(QPainter *painter, const QRectF &rect) const
{
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);
    dotLayout.lineAt(0).draw(painter, rect.topLeft());
    painter->restore();
}

// Texts that a host gave stay.
void KestIPAddressEditPrivate::translateActions()
{
    const auto translate = [](QAction *action, QString &text, const QString &translated) {
        const QString before = std::exchange(text, translated);
        if (action && action->text() == before)
            action->setText(translated);
    };
    const QPointer<KestIPAddressEdit> guard(q);
    translate(copyAction, copyText, KestIPAddressEdit::tr("Copy"));
    if (guard)
        translate(pasteAction, pasteText, KestIPAddressEdit::tr("Paste"));
}

KestIPAddressEdit::KestIPAddressEdit(QWidget *parent)
    : QWidget(parent), d(new KestIPAddressEditPrivate(this))
{
    KestAccessibleIPAddressEdit::install();
    setSizePolicy(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed, QSizePolicy::LineEdit));
    setContextMenuPolicy(Qt::CustomContextMenu);
    d->blinkTimer.setInterval(QApplication::cursorFlashTime() / 2);
    setFocusPolicy(Qt::StrongFocus);
    connect(&d->blinkTimer, &QTimer::timeout, this, [this] {
        d->cursorVisible = !d->cursorVisible;
        const QPointer<KestIPAddressEdit> guard(this);
        const QRect cursor = d->cursorRect();
        if (guard)
            update(cursor);
    });
    connect(this, &QWidget::customContextMenuRequested, this,
            &KestIPAddressEdit::onCustomContextMenuRequested);
    // Fonts that come and go may change what a font's name stands for.
    connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this, [this] { d->knownWidths = {}; });
    updateTextLayout();
    initActions();
    setReadOnly(d->readOnly);
}

KestIPAddressEdit::~KestIPAddressEdit()
{
    delete d;
}

void KestIPAddressEdit::initActions()
{
    const auto add = [this](QKeySequence::StandardKey key) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
        return action;
    };
    d->copyAction = add(QKeySequence::Copy);
    connect(d->copyAction, &QAction::triggered, this, [this] { d->copy(); });
    d->pasteAction = add(QKeySequence::Paste);
    connect(d->pasteAction, &QAction::triggered, this, [this] { d->paste(); });
    d->translateActions();
}

QString KestIPAddressEdit::ipAddress() const
{
    QStringList sections;
    for (const QTextLayout &layout : d->layouts)
        sections.append(layout.text().isEmpty() ? QStringLiteral("0") : layout.text());
    return sections.join(Dot);
}

void KestIPAddressEdit::setIPAddress(const QString &ip)
{
    const QStringList sections = ip.split(Dot);
    if (sections.size() != SectionCount
        || !std::all_of(sections.begin(), sections.end(), isSection))
        return;
    // Whoever hears of a change may delete the edit.
    const QPointer<KestIPAddressEdit> guard(this);
    for (int i = 0; i < SectionCount && guard; ++i)
        setText(d->layouts[size_t(i)], sections.at(i));
    if (guard)
        update();
}

bool KestIPAddressEdit::isReadOnly() const
{
    return d->readOnly;
}

void KestIPAddressEdit::setReadOnly(bool readOnly)
{
    const bool isChange = readOnly != d->readOnly;
    d->readOnly = readOnly;
    // Whoever hears of it may set it anew: each step goes by what it is then.
    const QPointer<KestIPAddressEdit> guard(this);
    setAttribute(Qt::WA_MacShowFocusRect, !d->readOnly);
    setAttribute(Qt::WA_InputMethodEnabled, !d->readOnly);
    if (guard)
        setCursor(d->readOnly ? Qt::ArrowCursor : Qt::IBeamCursor);
    QEvent change(QEvent::ReadOnlyChange);
    if (guard)
        QCoreApplication::sendEvent(this, &change);
    // Style sheets know the colour of the text by the property, which they look at only now.
    if (guard && isChange && testAttribute(Qt::WA_WState_Polished)
        && testAttribute(Qt::WA_StyleSheet)) {
        style()->unpolish(this);
        if (guard)
            style()->polish(this);
    }
    if (!guard)
        return;
    update();
    // Asking for an edit's interface makes it, of the class that the edit is by then: in its
    // constructor that of a subclass would never be.
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.readOnly = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

QSize KestIPAddressEdit::sizeHint() const
{
    return minimumSizeHint();
}

QSize KestIPAddressEdit::minimumSizeHint() const
{
    const QPointer<const KestIPAddressEdit> guard(this);
    ensurePolished();
    if (!guard)
        return QSize();
    const QFontMetrics metrics(font());
    const QMargins margins = contentsMargins();
    const int height = metrics.height() + std::max(metrics.leading(), 2 * d->verticalMargin)
        + margins.top() + margins.bottom();
    const int width =
        metrics.boundingRect(addressTemplate()).width() + margins.left() + margins.right();
    QStyleOptionFrame option;
    initStyleOption(&option);
    if (!guard)
        return QSize();
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(width, height), this);
}

void KestIPAddressEdit::initStyleOption(QStyleOptionFrame *option) const
{
    option->initFrom(this);
    option->rect = contentsRect();
    option->midLineWidth = 0;
    option->state |= QStyle::State_Sunken;
    if (d->readOnly)
        option->state |= QStyle::State_ReadOnly;
    option->lineWidth =
        d->frame ? style()->pixelMetric(QStyle::PM_DefaultFrameWidth, option, this) : 0;
}

void KestIPAddressEdit::updateTextLayout()
{
    for (QTextLayout &layout : d->layouts) {
        layout.setCacheEnabled(true);
        layout.setTextOption(QTextOption(Qt::AlignCenter));
        layout.setFont(font());
        redoTextLayout(layout);
    }
    d->dotLayout.setCacheEnabled(true);
    d->dotLayout.setFont(font());
    redoTextLayout(d->dotLayout);
}

// Returns the ascent of the line.
int KestIPAddressEdit::redoTextLayout(QTextLayout &layout)
{
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return qRound(line.ascent());
}

int KestIPAddressEdit::sectionOfCursorPosition(int position) const
{
    return std::min(position / SectionPositions, LastSection);
}

QTextLayout &KestIPAddressEdit::textLayout(int position) const
{
    return d->layouts[size_t(sectionOfCursorPosition(position))];
}

bool KestIPAddressEdit::setText(QTextLayout &layout, const QString &text)
{
    if (!isAccepted(text))
        return false;
    const bool announced = QAccessible::isActive();
    const QString before = announced ? ipAddress() : QString();
    layout.setText(text);
    d->cursorAscentOffset = redoTextLayout(layout) - fontMetrics().ascent();
    const QPointer<KestIPAddressEdit> guard(this);
    if (announced)
        KestAccessibleIPAddressEdit::announceText(this, before);
    if (guard)
        Q_EMIT editChanged();
    return true;
}

void KestIPAddressEdit::onCustomContextMenuRequested(const QPoint &pos)
{
    // The clipboard may ask the program for what it holds.
    const QPointer<KestIPAddressEdit> guard(this);
    const bool canPaste = !d->readOnly && !QGuiApplication::clipboard()->text().isEmpty();
    if (!guard)
        return;
    const bool canCopy =
        std::any_of(d->selections.cbegin(), d->selections.cend(), [](const auto &selection) {
            return !selection.isEmpty() && selection.first().length != 0;
        });
    // The edit may be deleted while the menu is open, and the menu with it.
    const QPointer<QMenu> menu(new QMenu(this));
    if (canCopy && d->copyAction)
        menu->addAction(d->copyAction);
    if (canPaste && d->pasteAction)
        menu->addAction(d->pasteAction);
    if (!menu->isEmpty())
        menu->exec(mapToGlobal(pos));
    delete menu;
}

bool KestIPAddressEdit::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::FontChange:
        updateTextLayout();
        break;
    case QEvent::LanguageChange: {
        const QPointer<KestIPAddressEdit> guard(this);
        d->translateActions();
        if (!guard)
            return true;
        break;
    }
    case QEvent::ShortcutOverride:
        // What is typed is not to trigger a shortcut of the window.
        if (!d->readOnly && isTyping(static_cast<QKeyEvent *>(event))) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void KestIPAddressEdit::focusInEvent(QFocusEvent *)
{
    d->cursorVisible = true;
    d->blinkTimer.start();
    update();
}

void KestIPAddressEdit::focusOutEvent(QFocusEvent *event)
{
    d->cursorVisible = false;
    d->blinkTimer.stop();
    // Its own menu is for what is selected.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason)
        clearSelection();
    update();
    const QPointer<KestIPAddressEdit> guard(this);
    KestAccessibleIPAddressEdit::announceSelection(this);
    if (guard)
        Q_EMIT editingFinished();
}

void KestIPAddressEdit::inputMethodEvent(QInputMethodEvent *event)
{
    event->setAccepted(!d->readOnly);
}

QVariant KestIPAddressEdit::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnabled)
        return false;
    return QWidget::inputMethodQuery(query);
}

QRect KestIPAddressEdit::rectOfIpSection(int section) const
{
    const QPointer<const KestIPAddressEdit> guard(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    if (!guard)
        return QRect();
    return Sections(this, option, d->widths(option.fontMetrics)).rect(section);
}

// Where the text of a section is in the rectangle of the section: in its middle.
QRect KestIPAddressEdit::boundRect(int section, const QRect &rect) const
{
    const QRectF bounds = d->layouts[size_t(section)].boundingRect();
    return { qRound(rect.left() + (rect.width() - bounds.width()) * 0.5),
             qRound(rect.top() + (rect.height() - bounds.height()) * 0.5), qRound(bounds.width()),
             qRound(bounds.height()) };
}

int KestIPAddressEdit::xToCursor(int x) const
{
    const QPointer<const KestIPAddressEdit> guard(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    if (!guard)
        return 0;
    const Sections sections(this, option, d->widths(option.fontMetrics));
    if (!guard || x < sections.rect(0).left())
        return 0;
    // A dot belongs to what is before it, and so does what is behind the last section.
    int section = 0;
    while (section < LastSection && x > sections.rect(section).right() + sections.dotWidth())
        ++section;
    const QTextLine line = d->layouts[size_t(section)].lineAt(0);
    return firstPosition(section)
        + line.xToCursor(x - boundRect(section, sections.rect(section)).left(),
                         QTextLine::CursorBetweenCharacters);
}

void KestIPAddressEdit::paintEvent(QPaintEvent *)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);

    const Sections sections(this, option, d->widths(option.fontMetrics));
    const bool withCursor = d->cursorVisible && hasFocus() && !d->readOnly;
    for (int section = 0; section < SectionCount; ++section) {
        const QTextLayout &layout = d->layouts[size_t(section)];
        const QRect rect = sections.rect(section);
        const QRect bounds = boundRect(section, rect);
        layout.draw(&painter, bounds.topLeft(), d->selections.at(section), bounds);
        if (section < LastSection) {
            const QRectF dotRect(rect.right() + 1, bounds.top(), sections.dotWidth(),
                                 bounds.height());
            d->paintDot(&painter, dotRect);
        }
        if (withCursor && section == sectionOfCursorPosition(d->cursorPosition)) {
            layout.drawCursor(&painter, bounds.topLeft() + QPoint(0, d->cursorAscentOffset),
                              positionInSection(d->cursorPosition));
        }
    }
}
