#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of the accounts and of their settling window share.
namespace contas
{

using cadastro::Rows;

extern const QString null;
extern const QString receivables;
extern const QString payables;

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepare();
    void finish();

    /// Opens the accounts with a tab in front.
    ui::Form *open(int tab = 0);
    void front(int tab);

    /// An open account of the table, falling due on 20/05/2024; gives its code.
    qint32 account(const QString &table, const QString &text, const QString &value,
                   const QString &due = QStringLiteral("05/20/2024"));

    /// The same, settled on a day.
    qint32 settled(const QString &table, const QString &text, const QString &value);

    /// An order of a new customer; gives the order's code.
    qint32 order(const QString &customer);

    void fill(const QString &date, const QString &text, const QString &value, const QString &due);

    /// The list in front: all cells of its rows, or those of one column.
    ui::ListView *list() const;
    Rows shown() const;
    QStringList column(int column) const;
    void clickRow(int row) const;
    void doubleClickRow(int row) const;

    /// A key of the list in front, on a row that is clicked first.
    void keyOn(int row, Qt::Key key) const;

    bool enabled(const QString &name) const { return support::controlOf(window_, name)->isEnabled(); }

    /// A second operator, who is no administrator, at the counter.
    void otherOperator();

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *window_ = nullptr;
    int tab_ = 0;
};

} // namespace contas
