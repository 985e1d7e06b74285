#include "app/dialogs/number_field.h"

#include "app/testing/recorded_messages.h"

#include <QLineEdit>
#include <QLocale>
#include <QTest>

#include <cmath>

class CNumberFieldTest : public QObject {
    Q_OBJECT

private slots:
    void AFiniteNumberIsTaken_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        QTest::newRow("whole") << "4" << 4.0;
        QTest::newRow("decimals") << "0.25" << 0.25;
        QTest::newRow("no leading zero") << ".5" << 0.5;
        QTest::newRow("negative") << "-1.5" << -1.5;
        QTest::newRow("plus") << "+1.5" << 1.5;
        QTest::newRow("exponent") << "1e-3" << 0.001;
        QTest::newRow("upper exponent") << "2E3" << 2000.0;
        QTest::newRow("blanks around") << "  7 " << 7.0;
        QTest::newRow("smallest") << "5e-324" << 5e-324;
        QTest::newRow("0.3 in single precision") << "0.30000001192092896" << static_cast<double>(0.3F);
    }
    void AFiniteNumberIsTaken() {
        QFETCH(QString, text);
        QFETCH(double, expected);
        const auto value = NumberFromText(text);
        QVERIFY(value.has_value());
        QVERIFY(*value == expected);
    }

    void AnythingElseIsRefused_data() {
        QTest::addColumn<QString>("text");
        for (const char* const text :
             {"",    " ",    "abc",      "1.5x",  "1,5",    "1 000", "1.2.3", "nan", "NaN", "-nan",
              "inf", "-INF", "infinity", "1e400", "-1e400", "0x10",  "+-1",   "--1", "1e",  "."}) {
            QTest::newRow(text) << text;
        }
        QTest::newRow("other digits") << QString::fromUtf8("１２");
    }
    void AnythingElseIsRefused() {
        QFETCH(QString, text);
        QVERIFY(!NumberFromText(text));
    }

    void TheLocaleOfTheUserDoesNotMatter() {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        QCOMPARE(NumberText(0.25), QString("0.25"));
        QCOMPARE(NumberText(1234567.5), QString("1234567.5"));
        QVERIFY(NumberFromText(u"0.25") == 0.25);
        QVERIFY(!NumberFromText(u"0,25"));
        QLocale::setDefault(before);
    }

    void AShownNumberReadsBackToTheSameDouble() {
        for (const double value : {0.0, 0.1, 1.0 / 3.0, 1e300, 5e-324, -2.58, static_cast<double>(0.3F)}) {
            QVERIFY(NumberFromText(NumberText(value)) == value);
        }
        QCOMPARE(NumberText(static_cast<double>(0.3F)), QString("0.30000001192092896"));
        QCOMPARE(NumberText(0.0), QString("0"));
    }

    void AFieldWithoutANumberSaysSoAndTakesTheFocus() {
        QWidget window;
        QLineEdit other(&window);
        QLineEdit field("12 mm", &window);
        field.setAccessibleName("Max Time");
        window.show();
        other.setFocus();
        CRecordedMessages messages;
        QVERIFY(!ReadNumberField(field, messages));
        const QStringList said = {
            "error|Error|Enter a number for \"Max Time\". Use a decimal point, for example 0.25."};
        QCOMPARE(messages.said, said);
        QVERIFY(window.focusWidget() == &field);
        QCOMPARE(field.selectedText(), QString("12 mm"));

        field.setText("12");
        QVERIFY(ReadNumberField(field, messages) == 12.0);
        QCOMPARE(messages.said, said);
    }
};

QTEST_MAIN(CNumberFieldTest)
#include "number_field_test.moc"
