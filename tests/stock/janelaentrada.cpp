#include "tests/stock/janelaentrada.h"

#include "platform/runtime/runtime.h"
#include "registers/registers.h"
#include "stock/stock.h"

using namespace Qt::StringLiterals;

namespace entrada
{

const QString null = u"<Null>"_s;
const QString question = u"Confirma Inclusão"_s;

void Case::prepare()
{
    stock::registerForms();
    registers::registerForms();
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(u"Tarvelo"_s);
    for (const QString &name : {u"UM"_s, u"DOIS"_s, u"ALFA PECAS"_s}) {
        program_->sql(u"INSERT INTO Fornecedores (Nome) VALUES ('%1')"_s.arg(name));
    }
    program_->sql(u"DELETE * FROM Fornecedores WHERE Codigo < 3"_s);
    program_->part(u"FILTRO"_s, u"P"_s, u"50,00"_s, true);
    program_->part(u"OLEO"_s, u"P"_s, u"40,00"_s, true, 2);
    program_->part(u"REVISAO"_s, u"S"_s, u"90,00"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 1030.5, CodExterno = 'W712/75' WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 25 WHERE Codigo = 2"_s);
}

void Case::finish()
{
    boxes_.reset();
    program_.reset();
    window_ = nullptr;
}

ui::Form *Case::open()
{
    window_ = cadastro::open(u"frmMoviEntradaPeca"_s);
    return window_;
}

void Case::supplier(const QString &code)
{
    support::type(window_, u"txtCodFornecedor"_s, code);
}

void Case::part(const QString &code)
{
    support::type(window_, u"txtCodPeca"_s, code);
}

void Case::add(const QString &code, const QString &quantity, const QString &value, const QString &description)
{
    part(code);
    support::type(window_, u"txtQuantidade"_s, quantity);
    if (code.isEmpty()) {
        support::type(window_, u"txtDescricao"_s, description);
    }
    if (!value.isEmpty()) {
        support::type(window_, u"txtValor"_s, value);
    }
    support::click(window_, u"btnItemAdd"_s);
}

void Case::save(int number)
{
    boxes_->question(question, true)
        .exclamation(u"Nota Nº %1 incluída com sucesso"_s.arg(runtime::Format(number, u"0000")));
    support::click(window_, u"btnIncluir"_s);
}

QStringList Case::shown() const
{
    QStringList rows;
    for (const QStringList &cells : cadastro::rowsOf(window_)) {
        rows << cells.join(u'|');
    }
    return rows;
}

} // namespace entrada
