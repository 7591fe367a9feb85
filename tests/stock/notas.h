#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of the queries of suppliers' notes share: suppliers, their notes and the lines of those.
namespace notas
{

using cadastro::Rows;

extern const QString nulo;
extern const QString perguntaDia;

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepara();
    void termina();

    qint32 fornecedor(const QString &nome);

    /// A note as a receipt leaves it, or with a mark; dates as literals have them, "Null" for none.
    qint32 nota(qint32 fornecedor, const QString &data, const QString &valor, bool paga = false,
                const QString &dataPagto = QStringLiteral("Null"), const QString &obs = {});
    void linha(qint32 nota, qint32 peca, const QString &quantidade, const QString &descricao, const QString &unitario,
               const QString &psa = QStringLiteral("P"));

    /// Mark and day of payment of all notes.
    Rows marcas() const;

    /// Texts of the list of the note's lines.
    Rows linhas() const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *janela_ = nullptr;
};

} // namespace notas
