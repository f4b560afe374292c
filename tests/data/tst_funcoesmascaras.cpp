#include <QTest>

#include "data/FuncoesMascaras.h"

class TesteFuncoesMascaras : public QObject {
    Q_OBJECT
private slots:
    void mascaras_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mostrado");
        QTest::newRow("cpf") << "cpf" << "11144477735" << "111-444-777/35";
        QTest::newRow("cnpj") << "cnpj" << "11222333000181" << "11-222-333-0001/81";
        QTest::newRow("cnpjcpf com 11 e cpf") << "cnpjcpf" << "11144477735" << "111-444-777/35";
        QTest::newRow("cnpjcpf com 14 e cnpj") << "cnpjcpf" << "11222333000181" << "11-222-333-0001/81";
        QTest::newRow("cnpjcpf vazio fica vazio") << "cnpjcpf" << "" << "";
        QTest::newRow("cnpjcpf curto completa com zeros") << "cnpjcpf" << "123" << "00-000-000-0001/23";
        QTest::newRow("cnpjcpf longo poe o excesso na frente") << "cnpjcpf" << "1234567890123456"
                                                               << "1234-567-890-1234/56";
        QTest::newRow("telefone") << "telefone" << "1123456789" << "(11)2345-6789";
        QTest::newRow("telefone sem ddd completa com zeros") << "telefone" << "23456789" << "(00)2345-6789";
        QTest::newRow("celular de onze digitos") << "telefone" << "19991234567" << "(19)99123-4567";
        QTest::newRow("fixo de dez digitos") << "telefone" << "1932221111" << "(19)3222-1111";
        QTest::newRow("digito a mais vai para a frente da mascara") << "telefone" << "119876543210"
                                                                    << "11(98)7654-3210";
        QTest::newRow("telefone ja com pontuacao fica como esta") << "telefone" << "(11)2345-6789"
                                                                  << "(11)2345-6789";
        QTest::newRow("cep") << "cep" << "12345678" << "12-345-678";
        QTest::newRow("cep com zero na frente guarda o zero") << "cep" << "01310100" << "01-310-100";
        QTest::newRow("cep curto nao inventa digitos") << "cep" << "1234567" << "1-234-567";
        QTest::newRow("cep com letras fica como esta") << "cep" << "CEP 123" << "CEP 123";
        QTest::newRow("cep vazio") << "cep" << "" << "";
    }
    void mascaras()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, texto);
        QFETCH(QString, mostrado);
        QString r;
        if (tipo == "cpf") r = MascaraCpf(texto);
        else if (tipo == "cnpj") r = MascaraCnpj(texto);
        else if (tipo == "cnpjcpf") r = MascaraCnpjCpf(texto);
        else if (tipo == "telefone") r = MascaraTelefone(texto);
        else r = MascaraCep(texto);
        QCOMPARE(r, mostrado);
    }

    void checaCnpjCpf_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<bool>("foco");
        QTest::addColumn<int>("tamanho");
        const QString tam = QStringLiteral("Tem que ser 11 numeros para CPF e 14 numeros para CNPJ");
        QTest::newRow("campo vazio nao faz nada") << "" << "" << "" << false << -1;
        QTest::newRow("cpf certo digitado com pontos") << "111.444.777-35" << "111-444-777/35" << "" << false << 14;
        QTest::newRow("cpf com dv errado esvazia sem voltar o foco")
            << "11144477736" << "" << "CPF com DV incorreto !!!" << false << 14;
        QTest::newRow("cnpj certo") << "11222333000181" << "11-222-333-0001/81" << "" << false << 18;
        QTest::newRow("cnpj ja mascarado volta mascarado") << "11-222-333-0001/81" << "11-222-333-0001/81" << ""
                                                          << false << 18;
        QTest::newRow("cnpj com dv errado esvazia e volta o foco")
            << "11222333000182" << "" << "CNPJ com DV incorreto !!! " << true << 18;
        QTest::newRow("dez digitos") << "1234567890" << "" << tam << true << -1;
        QTest::newRow("treze digitos") << "1234567890123" << "" << tam << true << -1;
        QTest::newRow("doze digitos terminam a mensagem com aspas")
            << "123456789012" << "" << tam + QLatin1Char('"') << true << -1;
        QTest::newRow("so letras contam como zero digitos") << "abc" << "" << tam << true << -1;
        QTest::newRow("mais de quatorze ficam sem checar") << "1234567890123456" << "1234567890123456" << ""
                                                           << false << -1;
    }
    void checaCnpjCpf()
    {
        QFETCH(QString, campo);
        QFETCH(QString, texto);
        QFETCH(QString, mensagem);
        QFETCH(bool, foco);
        QFETCH(int, tamanho);
        const ChecagemCnpjCpf r = ChecaCnpjCpf(campo);
        QCOMPARE(r.texto, texto);
        QCOMPARE(r.mensagem, mensagem);
        QCOMPARE(r.voltaFoco, foco);
        QCOMPARE(r.tamanhoMaximo, tamanho);
    }
};

QTEST_GUILESS_MAIN(TesteFuncoesMascaras)
#include "tst_funcoesmascaras.moc"
