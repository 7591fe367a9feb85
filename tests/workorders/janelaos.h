#pragma once

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "support/boxes.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QTabWidget>
#include <QTest>

#include <memory>

/// What the cases on the windows that open and alter an order have in common: a program of their own, its boxes, the
/// window and the hands of a clerk on it.
class OrderWindowTest : public QObject
{
protected:
    using Rows = std::vector<QStringList>;

    static inline const QString full = QStringLiteral("3");
    static inline const QString compact = QStringLiteral("1");

    static void registerWindows()
    {
        registers::registerForms();
        workorders::registerForms();
    }

    void start()
    {
        program_ = std::make_unique<support::Program>();
        boxes_ = std::make_unique<support::Boxes>();
    }

    void stop()
    {
        boxes_.reset();
        program_.reset();
    }

    void open(const QString &layout = compact, qint16 mode = 0, const QString &window = QStringLiteral("frmOSAbre"))
    {
        program_->config(QStringLiteral("LayoutOS"), layout);
        core::ModoChamada = mode;
        form_ = support::show(window);
    }

    QWidget *at(const QString &name) const { return support::controlOf(form_, name); }
    QString shown(const QString &name) const { return support::text(form_, name); }
    void goTo(int tab) const { support::control<QTabWidget>(form_, QStringLiteral("tabItems"))->setCurrentIndex(tab); }
    ui::ListView *list(const QString &name) const { return support::control<ui::ListView>(form_, name); }

    void add(const QString &quantity, const QString &description, const QString &value) const
    {
        support::type(form_, QStringLiteral("txtQuantidade"), quantity);
        support::type(form_, QStringLiteral("txtDescricao"), description);
        support::type(form_, QStringLiteral("txtValor"), value);
        support::click(form_, QStringLiteral("btnItemAdd"));
    }

    void addRegistered(qint32 code, const QString &quantity = QStringLiteral("1")) const
    {
        support::type(form_, QStringLiteral("txtCodPeca"), QString::number(code));
        support::type(form_, QStringLiteral("txtQuantidade"), quantity);
        support::click(form_, QStringLiteral("btnItemAdd"));
    }

    /// The rows of a list as they are read.
    Rows rows(const QString &name) const
    {
        const auto *from = list(name);
        Rows all;
        for (int row = 0; row < from->count(); ++row) {
            QStringList cells;
            for (int column = 0; column < from->columnCount(); ++column) {
                cells << from->item(row).subItem(column);
            }
            all.push_back(cells);
        }
        return all;
    }

    /// Total, parts, services, outsourced.
    QStringList totals() const
    {
        return {shown(QStringLiteral("lblTotal")), shown(QStringLiteral("lblTotalP")),
                shown(QStringLiteral("lblTotalS")), shown(QStringLiteral("lblTotalT"))};
    }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *form_ = nullptr;
};
