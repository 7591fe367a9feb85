#include "tests/stock/notas.h"

#include "registers/registers.h"
#include "reports/reports.h"
#include "stock/stock.h"

using namespace Qt::StringLiterals;

namespace notas
{

const QString nulo = u"<Null>"_s;
const QString perguntaDia = u"Digite a Data do Pagamento"_s;

void Case::prepara()
{
    stock::registerForms();
    registers::registerForms();
    reports::registerForms();
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(u"Tarvelo"_s);
}

void Case::termina()
{
    boxes_.reset();
    program_.reset();
    janela_ = nullptr;
}

qint32 Case::fornecedor(const QString &nome)
{
    program_->sql(u"INSERT INTO Fornecedores (Nome) VALUES ('%1')"_s.arg(nome));
    return program_->rows(u"SELECT MAX(Codigo) FROM Fornecedores"_s).front().front().toInt();
}

qint32 Case::nota(qint32 fornecedor, const QString &data, const QString &valor, bool paga, const QString &dataPagto,
                  const QString &obs)
{
    program_->sql(u"INSERT INTO NotasEntradas (CodForn, Data, Valor, Pago, DataPagto, Observacoes) VALUES "
                  "(%1, #%2#, %3, %4, %5, %6)"_s.arg(QString::number(fornecedor), data, valor,
                                                     paga ? u"True"_s : u"False"_s,
                                                     dataPagto == u"Null" ? dataPagto : u'#' + dataPagto + u'#',
                                                     obs.isEmpty() ? u"Null"_s : u'\'' + obs + u'\''));
    return program_->rows(u"SELECT MAX(Codigo) FROM NotasEntradas"_s).front().front().toInt();
}

void Case::linha(qint32 nota, qint32 peca, const QString &quantidade, const QString &descricao, const QString &unitario,
                 const QString &psa)
{
    program_->sql(u"INSERT INTO NotasPecas (CodNota, CodPeca, Quantidade, Descricao, ValorUnit, PSA) VALUES "
                  "(%1, %2, %3, '%4', %5, '%6')"_s.arg(QString::number(nota), QString::number(peca), quantidade,
                                                       descricao, unitario, psa));
}

Rows Case::marcas() const
{
    return program_->rows(u"SELECT Pago, DataPagto FROM NotasEntradas ORDER BY Codigo"_s);
}

Rows Case::linhas() const
{
    const auto *lista = cadastro::list(janela_, u"lstPecas"_s);
    Rows todas;
    for (int linha = 0; linha < lista->count(); ++linha) {
        QStringList celulas;
        for (int coluna = 0; coluna < lista->columnCount(); ++coluna) {
            celulas << lista->item(linha).subItem(coluna);
        }
        todas.push_back(celulas);
    }
    return todas;
}

} // namespace notas
