// Makes the postal-code database out of a text file: cep [--latin1] [--substitui] ENTRADA.csv SAIDA.MDB
#include "platform/runtime/console.h"
#include "platform/runtime/runtime.h"
#include "platform/runtime/statusline.h"
#include "tools/cep/postais.h"

#include <QCoreApplication>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace
{

enum Saida { feito = 0, falhou = 1, malChamado = 2 };

const QString uso = u"uso: %1 [--latin1] [--substitui] ENTRADA.csv SAIDA.MDB\n"
                    u"\n"
                    u"Faz o banco de CEPs de um arquivo de texto com as colunas\n"
                    u"CEP, Tipo, Rua, Bairro, Cidade, Estado, separadas por ';' ou ','.\n"
                    u"\n"
                    u"  --latin1     o texto está na página de código 1252 (sem isto: UTF-8)\n"
                    u"  --substitui  substitui o banco, se já existir\n"
                    u"  --ajuda      mostra este texto\n"_s;

QString quantos(qint64 ceps)
{
    return runtime::Format(static_cast<double>(ceps), u"#,##0") + (ceps == 1 ? u" CEP"_s : u" CEPs"_s);
}

/// Nothing where the command line is no request.
std::optional<ceps::Pedido> lePedido(const QStringList &argumentos)
{
    ceps::Pedido pedido;
    QStringList arquivos;
    for (const QString &argumento : argumentos) {
        if (argumento == u"--latin1") {
            pedido.codificacao = ceps::Codificacao::Windows1252;
        } else if (argumento == u"--substitui") {
            pedido.substitui = true;
        } else if (argumento.startsWith(u'-')) {
            return std::nullopt;
        } else {
            arquivos.append(argumento);
        }
    }
    if (arquivos.size() != 2) {
        return std::nullopt;
    }
    pedido.entrada = arquivos[0];
    pedido.saida = arquivos[1];
    return pedido;
}

void faz(const ceps::Pedido &pedido)
{
    QElapsedTimer relogio;
    relogio.start();
    runtime::StatusLine linha;
    const qint64 ceps = ceps::fazBanco(pedido, [&linha](int porcento, qint64 ateAqui) {
        linha.show(u"%1 % (%2)"_s.arg(porcento, 3).arg(quantos(ateAqui)));
        return !runtime::interrupted();
    });
    linha.clear();
    const QString segundos = runtime::Format(static_cast<double>(relogio.elapsed()) / 1000, u"0.0");
    runtime::print(u"%1: %2 em %3 s.\n"_s.arg(pedido.saida, quantos(ceps), segundos));
}

int recusa(const QString &motivo)
{
    runtime::print(QCoreApplication::applicationName() + u": "_s + motivo + u'\n', stderr);
    return falhou;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication programa(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments().mid(1);
    if (argumentos == QStringList{u"--ajuda"_s}) {
        runtime::print(uso.arg(QCoreApplication::applicationName()));
        return feito;
    }
    const std::optional<ceps::Pedido> pedido = lePedido(argumentos);
    if (!pedido) {
        runtime::print(uso.arg(QCoreApplication::applicationName()), stderr);
        return malChamado;
    }
    runtime::noteInterruption();
    try {
        faz(*pedido);
        return feito;
    } catch (const ceps::Erro &erro) {
        return recusa(erro.texto());
    } catch (const runtime::RuntimeError &erro) {
        return recusa(erro.description());
    }
}
