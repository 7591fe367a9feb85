#pragma once

#include "estimates/orcamento.h"
#include "support/program.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace ui
{
class Form;
class ListView;
} // namespace ui

/// What the cases of the query of estimates share: three estimates, the first with an item of every kind.
class EstimateQueryTest : public QObject
{
    Q_OBJECT

protected:
    using Rows = std::vector<QStringList>;

    static void registerWindows();
    void prepare();
    void finish();

    void open(qint16 mode = 0, const QString &layout = QStringLiteral("1"));

    /// Clicks the row of the estimate.
    void show(const QString &code) const;

    /// The rows of a list of a window as they are read.
    static Rows rowsOf(ui::Form *form, const QString &list);
    Rows rows(const QString &list) const { return rowsOf(window_, list); }
    QStringList codes() const;
    ui::ListView *list() const;
    int documents() const; ///< how many went to paper

    static ui::Form *found(const QString &form);

    static inline const QString query = QStringLiteral("frmOSOrcaConsulta");
    static inline const QString altering = QStringLiteral("frmOSOrcaAltera");
    static inline const QString numberField = QStringLiteral("txtCodOrcamento");

    std::unique_ptr<support::Program> program_;
    ui::Form *window_ = nullptr;
};
