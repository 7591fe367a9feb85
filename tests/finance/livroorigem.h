#pragma once

#include "finance/finance.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of the origin book share: the window over a book that begins empty, 15/05/2024 being today.
namespace livroorigem
{

using Linhas = cadastro::Rows;

inline const QString janelaOrigem = QStringLiteral("frmMoviLivroOrigem");

class Caso : public QObject
{
    Q_OBJECT

protected:
    void prepara()
    {
        finance::registerForms();
        programa_ = std::make_unique<support::Program>();
        programa_->originBook();
        caixas_ = std::make_unique<support::Boxes>();
        caixas_->title(QStringLiteral("Tarvelo"));
    }

    void termina()
    {
        caixas_.reset();
        programa_.reset();
        janela_ = nullptr;
    }

    void abre() { janela_ = cadastro::open(janelaOrigem); }

    /// A row as it stands in the file, the date as the statement takes it; the amounts are parted by commas.
    void linha(const QString &data, const QString &origem, const QString &valores)
    {
        programa_->sql(QStringLiteral("INSERT INTO LivroOrigem (Data, Origem, Dinheiro, Avista, Aprazo, Duplicata) "
                                      "VALUES (#%1#, '%2', %3)")
                           .arg(data, origem, valores));
    }

    /// Code, date, origin and the four amounts of all rows.
    Linhas livro() const
    {
        return programa_->rows(QStringLiteral(
            "SELECT Codigo, Data, Origem, Dinheiro, Avista, Aprazo, Duplicata FROM LivroOrigem ORDER BY Codigo"));
    }

    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<support::Boxes> caixas_;
    ui::Form *janela_ = nullptr;
};

} // namespace livroorigem
