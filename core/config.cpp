#include "core/config.h"

#include "core/caminhos.h"
#include "core/chavesjuntas.h"
#include "core/embaralha.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/files/replacefile.h"
#include "platform/ini/profile.h"
#include "platform/runtime/runtime.h"

#include <array>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

struct Chave {
    QStringView secao;
    QStringView nome;
    QStringView padrao;
};

constexpr QStringView secaoConfig = u"Config";
constexpr QStringView secaoOrcamento = u"Orcamento";

/// A default that the table can't hold: the present moment.
constexpr QStringView agora = u"<agora>";

constexpr std::array<Chave, 29> chaves{{
    {secaoConfig, u"Juros", u"0"},
    {secaoConfig, u"Nome", u"Tarvelo"},
    {secaoConfig, u"Desconto", u"0"},
    {secaoConfig, u"PermiteLC", u"S"},
    {secaoConfig, u"Endereco", u"Endereço"},
    {secaoConfig, u"Bairro", u"Bairro"},
    {secaoConfig, u"Telefone", u"Telefone"},
    {secaoConfig, u"CEP", u"On"},
    {secaoConfig, u"AutoComplete", u"S"},
    {secaoConfig, u"Personalizacao", u"0"},
    {secaoConfig, u"ExibeAviso", u"S"},
    {secaoConfig, u"AvisaBackup", u"S"},
    {secaoConfig, u"LastBackup", agora},
    {secaoConfig, u"BackupDias", u"7"},
    {secaoOrcamento, u"P1", u"0"},
    {secaoOrcamento, u"P2", u"0"},
    {secaoOrcamento, u"P3", u"1"},
    {secaoOrcamento, u"P4", u"0"},
    {secaoOrcamento, u"P5", u"0"},
    {secaoOrcamento, u"Parcelas", u"06"},
    {secaoOrcamento, u"Texto1", u"ORÇAMENTO VÁLIDO POR 15 DIAS"},
    {secaoOrcamento, u"Texto2", u"VALORES SUJEITOS A ALTERÇÃO SEM PRÉVIO AVISO"},
    {secaoOrcamento, u"Gravado", u"Ok"},
    {secaoConfig, u"DesativarGraficos", u"N"},
    {secaoConfig, u"LayoutOS", u"1"},
    {secaoConfig, u"PrintFormaPagto", u"S"},
    {secaoConfig, u"PreencheCadastroAutomatico", u"S"},
    {secaoConfig, u"NotaPeca", u"000000"},
    {secaoConfig, u"NotaServico", u"000000"},
}};

QString padraoDe(const Chave &chave)
{
    return chave.padrao == agora ? runtime::Format(runtime::Now(), mascaraDataHora) : chave.padrao.toString();
}

using Valores = std::vector<std::pair<QString, QString>>;

void completa(QStringView secao, const Valores &faltantes)
{
    if (!faltantes.empty()) {
        GravaJuntas(secao.toString(), faltantes);
    }
}

/// A section in one go: a write of its own for every key keeps the user of a new installation waiting for the disk.
void completaChaves()
{
    Valores config;
    Valores orcamento;
    for (const Chave &chave : chaves) {
        if (LeINI(chave.secao.toString(), chave.nome.toString(), true).isEmpty()) {
            auto &faltantes = chave.secao == secaoConfig ? config : orcamento;
            faltantes.emplace_back(chave.nome.toString(), padraoDe(chave));
        }
    }
    completa(secaoConfig, config);
    completa(secaoOrcamento, orcamento);
}

/// Reads a path key, and writes its default for the next reading where there is none.
QString completaCaminho(const QString &nome, const QString &padrao)
{
    const QString secao = secaoConfig.toString();
    QString valor = LeINI(secao, nome, false);
    if (valor.isEmpty()) {
        GravaINI(secao, nome, padrao, false);
    }
    return valor;
}

} // namespace

QString LeINI(const QString &secao, const QString &chave, bool embaralhado)
{
    constexpr int tamanho = 255;
    QString valor = ini::readProfile(secao, chave, {}, tamanho, caminho(ArquivoINI));
    return embaralhado && !valor.isEmpty() ? Desembaralha(valor) : valor;
}

void GravaINI(const QString &secao, const QString &chave, QString &valor, bool embaralhado)
{
    if (embaralhado) {
        valor = Embaralha(valor);
    }
    // A settings file that can't be written loses the write: nobody is told.
    ini::writeProfile(secao, chave, valor, caminho(ArquivoINI));
}

void GravaINI(const QString &secao, const QString &chave, const QString &valor, bool embaralhado)
{
    QString copia = valor;
    GravaINI(secao, chave, copia, embaralhado);
}

void CarregaConfig()
{
    files::clearLeftovers(caminho(ArquivoINI));
    completaChaves();
    ArquivoDB = completaCaminho(u"FileDB"_s, App::Path() + u"\\DADOS\\DADOS.MDB"_s);
    ArquivoCEP = completaCaminho(u"FileCEP"_s, App::Path() + u"\\CEP.MDB"_s);
}

QString Config(const QString &chave)
{
    return LeINI(secaoConfig.toString(), chave, true);
}

QString ConfigOrcamento(const QString &chave)
{
    return LeINI(secaoOrcamento.toString(), chave, true);
}

} // namespace core
