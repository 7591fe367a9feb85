#pragma once

#include "tests/registers/caso.h"

/// What the tests of the register of customers share.
namespace clientes
{

using namespace Qt::StringLiterals;

using cadastro::askAlter;
using cadastro::askDelete;
using cadastro::askInclude;
using cadastro::Fields;
using cadastro::null;
using cadastro::Rows;

inline const QString window = u"frmCadaCliente"_s;

/// What a clerk types for a whole customer.
inline const Fields typed{
    {u"txtNome"_s, u"joana"_s},
    {u"txtEndereco"_s, u"rua b"_s},
    {u"txtNumero"_s, u"120"_s},
    {u"txtComplemento"_s, u"casa 2"_s},
    {u"txtBairro"_s, u"gonzaga"_s},
    {u"txtCidade"_s, u"santos"_s},
    {u"cboEstado"_s, u"rj"_s},
    {u"txtCEP"_s, u"11060001"_s},
    {u"txtPontoReferencia"_s, u"canal 3"_s},
    {u"txtFone1"_s, u"1332841111"_s},
    {u"txtFone2"_s, u"1332842222"_s},
    {u"txtCelular"_s, u"1397773333"_s},
    {u"txtRG"_s, u"12.345.678-x"_s},
    {u"txtCPF"_s, u"11144477735"_s},
    {u"txtDataNascimento"_s, u"02011980"_s},
    {u"txtEmail"_s, u"joana@oficina.com"_s},
    {u"txtLimite"_s, u"1234,5"_s},
    {u"txtObservacoes"_s, u"paga em dia"_s},
};

/// The row that comes of it.
inline const QStringList written{
    u"1"_s,
    u"15/05/2024 00:00:00"_s,
    u"JOANA"_s,
    u"RUA B"_s,
    u"120"_s,
    u"CASA 2"_s,
    u"GONZAGA"_s,
    u"SANTOS"_s,
    u"RJ"_s,
    u"11.060-001"_s,
    u"CANAL 3"_s,
    u"(13) 3284-1111"_s,
    u"(13) 3284-2222"_s,
    u"(13) 9777-3333"_s,
    u"12.345.678-X"_s,
    u"11144477735"_s,
    u"02/01/1980 00:00:00"_s,
    u"joana@oficina.com"_s,
    u"1234.5"_s,
    u"PAGA EM DIA"_s,
};

/// The fields of the customer that `Case::maria` adds.
inline const Fields mariaShown{
    {u"lblCodigo"_s, u"0001"_s},
    {u"lblDataCadastro"_s, u"20/03/2023"_s},
    {u"txtNome"_s, u"Maria"_s},
    {u"txtEndereco"_s, u"Rua A"_s},
    {u"txtNumero"_s, u"77"_s},
    {u"txtComplemento"_s, u"Fundos"_s},
    {u"txtBairro"_s, u"Centro"_s},
    {u"txtCidade"_s, u"Campinas"_s},
    {u"cboEstado"_s, u"MG"_s},
    {u"txtCEP"_s, u"13.010-002"_s},
    {u"txtPontoReferencia"_s, u"Praça"_s},
    {u"txtFone1"_s, u"(19) 3232-1111"_s},
    {u"txtFone2"_s, u"(19) 3232-2222"_s},
    {u"txtCelular"_s, u"(19) 9191-3333"_s},
    {u"txtRG"_s, u"9876543"_s},
    {u"cboPessoa"_s, u"Física"_s},
    {u"txtCPF"_s, u"529.982.247-25"_s},
    {u"txtDataNascimento"_s, u"03/02/1975"_s},
    {u"txtEmail"_s, u"maria@oficina.com"_s},
    {u"txtLimite"_s, u"1.500,25"_s},
    {u"txtObservacoes"_s, u"Antiga"_s},
};

/// Her row in the list, and in the table.
inline const QStringList mariaListed{u"0001"_s,
                                     u"Maria"_s,
                                     u"Rua A"_s,
                                     u"77"_s,
                                     u"Centro"_s,
                                     u"Campinas"_s,
                                     u"(19) 3232-1111"_s,
                                     u"(19) 3232-2222"_s,
                                     u"(19) 9191-3333"_s,
                                     u"52998224725"_s,
                                     u"maria@oficina.com"_s};
inline const QStringList mariaStored{
    u"1"_s,
    u"20/03/2023 00:00:00"_s,
    u"Maria"_s,
    u"Rua A"_s,
    u"77"_s,
    u"Fundos"_s,
    u"Centro"_s,
    u"Campinas"_s,
    u"MG"_s,
    u"13.010-002"_s,
    u"Praça"_s,
    u"(19) 3232-1111"_s,
    u"(19) 3232-2222"_s,
    u"(19) 9191-3333"_s,
    u"9876543"_s,
    u"52998224725"_s,
    u"03/02/1975 00:00:00"_s,
    u"maria@oficina.com"_s,
    u"1500.25"_s,
    u"Antiga"_s,
};

class Case : protected cadastro::Case
{
protected:
    Case() : cadastro::Case(window) {}

    /// A customer with every column filled, by hand of another program: not in capitals.
    void maria()
    {
        program_->sql(
            u"INSERT INTO Clientes (DataCadastro, Nome, Endereco, Numero, Complemento, Bairro, Cidade, Estado, "
            "CEP, PontoReferencia, Fone1, Fone2, Celular, RG, CPF, DataNascimento, Email, LimiteCredito, "
            "Observacoes) VALUES (#03/20/2023#, 'Maria', 'Rua A', 77, 'Fundos', 'Centro', 'Campinas', 'MG', "
            "'13.010-002', 'Praça', '(19) 3232-1111', '(19) 3232-2222', '(19) 9191-3333', '9876543', "
            "'52998224725', #02/03/1975#, 'maria@oficina.com', 1500.25, 'Antiga')"_s);
    }

    Rows stored() const { return program_->rows(u"SELECT * FROM Clientes ORDER BY Codigo"_s); }
    QString text(const QString &control) const { return support::text(form_, control); }
    QString focus() const { return cadastro::focusOf(form_); }
    Fields shown(const Fields &fields) const { return cadastro::shown(form_, fields); }

    int person() const { return support::control<QComboBox>(form_, u"cboPessoa"_s)->currentIndex(); }
};

} // namespace clientes
