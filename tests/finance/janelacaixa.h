#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of the cash book share: the window over ledgers that begin empty, 15/05/2024 being today.
namespace caixa
{

using cadastro::Rows;

extern const QString null;

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepare();
    void finish();

    ui::Form *open(qint16 mode = 0);

    /// A row as another writer leaves it, "mm/dd/yyyy"; gives its code.
    qint32 row(const QString &date, const QString &text, const QString &in, const QString &out, const QString &balance,
               const QString &order = QStringLiteral("Null"), const QString &table = QStringLiteral("Caixa"));

    /// Fills a row in, leaving its boxes as a clerk does; the same, added.
    void fill(const QString &option, const QString &date, const QString &text, const QString &amount);
    void add(const QString &option, const QString &date, const QString &text, const QString &amount);

    /// The list over all dates that the cases use.
    void showAll();

    /// Code, in, out and balance of all rows in the order of the ledger.
    Rows ledger(const QString &table = QStringLiteral("Caixa")) const;

    bool enabled(const QString &name) const { return support::controlOf(window_, name)->isEnabled(); }
    bool hidden(const QString &name) const { return !support::controlOf(window_, name)->isVisible(); }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *window_ = nullptr;
};

} // namespace caixa
