#pragma once

#include "core/previsualiza.h"
#include "platform/ui/form.h"
#include "support/program.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

/// What the tests of the preview share: a preview with pages, and what is seen of them.
namespace previa
{

using namespace Qt::StringLiterals;

inline const QString preview = u"frmRelaPreVisualiza"_s;

inline void draw(printer::Surface &surface, int pages)
{
    for (int page = 1; page <= pages; ++page) {
        surface.FontSize = 24;
        surface.Print(u"FOLHA %1"_s.arg(page));
        if (page < pages) {
            surface.NewPage();
        }
    }
    surface.EndDoc();
}

/// The preview that stands open, ready for keys.
inline ui::Form *activated()
{
    ui::Form *form = ui::Forms::instance().find(preview);
    form->window()->resize(900, 700);
    form->window()->activateWindow();
    [&] { QVERIFY(QTest::qWaitForWindowActive(form->window())); }();
    return form;
}

/// A preview of so many pages, open and shown.
inline ui::Form *open(int pages)
{
    draw(core::AbrePreVisualizacao(), pages);
    return activated();
}

inline QWidget *pic(ui::Form *form, int page)
{
    return form->findChild<QWidget *>(u"pic_%1"_s.arg(page));
}

inline QString shown(ui::Form *form)
{
    QStringList visible;
    for (int page = 0; pic(form, page) != nullptr; ++page) {
        if (pic(form, page)->isVisible()) {
            visible << QString::number(page);
        }
    }
    return visible.join(u' ');
}

inline QString counts(ui::Form *form)
{
    return support::text(form, u"lblPagina"_s) + u" de "_s + support::text(form, u"lblPaginas"_s);
}

inline void turnWheel(ui::Form *form, int delta, Qt::KeyboardModifiers modifiers)
{
    const QWidget *window = form->window();
    const QWidget *page = pic(form, 1);
    const QPointF place = page->mapTo(window, QPoint(page->width() / 2, 10));
    QWheelEvent event(place, window->mapToGlobal(place), {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&event); // as from the system: only such a turn goes on to the window behind
    qApp->notify(window->windowHandle(), &event);
}

} // namespace previa
