#include "platform/ui/boxlayout.h"

#include "platform/ui/boxes.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QStyle>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr auto visibleProperty = "keepVisible";
constexpr int gapInCharacters = 2;  // between the two columns of a box
constexpr int leastCharacters = 20; // of an input box: what a code needs
constexpr int spareCharacters = 8;  // behind the text that it offers
constexpr int buttonCharacters = 8; // of a title bar's buttons

int widestOf(const QString &text, const QFontMetrics &metrics)
{
    int widest = 0;
    for (const auto &line : text.split(u'\n')) {
        widest = std::max(widest, metrics.horizontalAdvance(line));
    }
    return widest;
}

/// The labels are what stands in front of the first tab of a line.
int widestLabel(const QString &text, const QFontMetrics &metrics)
{
    int widest = 0;
    for (const auto &line : text.split(u'\n')) {
        widest = std::max(widest, metrics.horizontalAdvance(line.section(u'\t', 0, 0)));
    }
    return widest;
}

/// Wrapped lines of a value begin under it.
void hang(QTextDocument &document, qreal column)
{
    QTextCursor cursor(&document);
    cursor.select(QTextCursor::Document);
    QTextBlockFormat format;
    format.setLeftMargin(column);
    format.setTextIndent(-column);
    cursor.mergeBlockFormat(format);
}

/// The places beside a value where a box leaves it free: below, above, right, left.
std::array<QPoint, 4> placesBeside(const QRect &value, const QRect &box)
{
    return {QPoint(box.x(), value.bottom() + 1), QPoint(box.x(), value.top() - box.height()),
            QPoint(value.right() + 1, box.y()), QPoint(value.left() - box.width(), box.y())};
}

QRect onScreen(const QWidget *widget)
{
    return {widget->mapToGlobal(QPoint(0, 0)), widget->size()};
}

void keepOff(QDialog &box)
{
    const auto *window = box.parentWidget();
    if (!window) {
        return;
    }
    const int title = box.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &box);
    const QRect screen = box.screen()->availableGeometry();
    for (const auto *value : window->findChildren<QWidget *>()) {
        const QRect frame(box.pos(), QSize(box.width(), box.height() + title));
        const QRect taken = onScreen(value);
        if (!value->property(visibleProperty).toBool() || !value->isVisible() || !frame.intersects(taken)) {
            continue;
        }
        for (const auto place : placesBeside(taken, frame)) {
            if (screen.contains(QRect(place, frame.size()))) {
                box.move(place);
                break;
            }
        }
    }
}

} // namespace

void Box::showEvent(QShowEvent *event)
{
    QMessageBox::showEvent(event);
    keepOff(*this);
}

void keepVisible(QWidget *value)
{
    value->setProperty(visibleProperty, true);
}

void alignTabs(QMessageBox &box)
{
    if (!box.text().contains(u'\t')) {
        return;
    }
    // Only a text that can be marked is laid out as a document, whose tabs can be set.
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
    auto *document = label ? label->findChild<QTextDocument *>() : nullptr;
    if (!document) {
        return;
    }
    label->sizeHint(); // puts the text into the document
    const auto metrics = label->fontMetrics();
    const qreal column = widestLabel(box.text(), metrics) + gapInCharacters * metrics.averageCharWidth();
    auto option = document->defaultTextOption();
    option.setTabStopDistance(column);
    document->setDefaultTextOption(option);
    hang(*document, column);
}

void fitInput(QInputDialog &dialog)
{
    auto *edit = dialog.findChild<QLineEdit *>();
    const auto metrics = edit->fontMetrics();
    const int character = metrics.averageCharWidth();
    const int most = dialog.screen()->availableGeometry().width() * 3 / 4;
    const int asked = std::max(widestOf(dialog.labelText(), metrics),
                               metrics.horizontalAdvance(dialog.textValue()) + spareCharacters * character);
    edit->setMinimumWidth(std::clamp(asked, std::min(leastCharacters * character, most), most));
    const int title = metrics.horizontalAdvance(dialog.windowTitle()) + buttonCharacters * character;
    dialog.setMinimumWidth(std::min(title, most));
}

} // namespace ui
