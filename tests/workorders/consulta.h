#pragma once

#include "support/program.h"
#include "workorders/ordem.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace ui
{
class Form;
class ListView;
} // namespace ui

/// What the cases of the order query share: one customer, one car, and the open order 0001 with one free line.
namespace consulta
{

extern const QString query;
extern const QString payment;

/// Makes a window known that does not exist yet, with the field that a hand-back writes to.
void pretend(const QString &form, const QString &field);

/// The texts of a list's first column, and its rows, each as one text with its cells between bars.
QStringList codes(const ui::ListView &list);
QStringList rowsOf(const ui::ListView &list);

documents::LinhaItem line(const QString &code, const QString &psa, const QString &quantity, const QString &name,
                          const QString &price);

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepare();
    void start(); ///< the same, windows being known already
    void finish();

    ui::Form *open(qint16 mode = 0);
    QString newOrder(const std::vector<documents::LinhaItem> &items, qint32 vehicle = 0);
    static void closeOrder(const QString &code);

    /// Clicks the row of the order.
    void show(const QString &code);
    ui::ListView *list(const QString &name = QStringLiteral("Lista")) const;
    int documents() const;

    std::unique_ptr<support::Program> program_;
    ui::Form *window_ = nullptr;
    qint32 customer_ = 0;
    qint32 vehicle_ = 0;
    QString first_;
};

} // namespace consulta
