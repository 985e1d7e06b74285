#include "widgets/messages.h"

#include "files/error.h"

#include <QTest>

#include <exception>
#include <new>
#include <stdexcept>
#include <vector>

using widget_message::FileDamaged;
using widget_message::SentenceOf;

class CWidgetMessagesTest : public QObject {
    Q_OBJECT

private slots:
    // Message boxes showed "std::bad_alloc" and "vector::reserve".
    void TooLittleMemoryIsASentence() {
        const QString sentence = "There is not enough memory. Fewer or shorter signals would need less.";
        QCOMPARE(SentenceOf(std::bad_alloc()), sentence);
        QCOMPARE(SentenceOf(std::bad_array_new_length()), sentence);
        std::vector<double> values;
        try {
            values.reserve(values.max_size() + 1);
            QFAIL("nothing was thrown");
        } catch (const std::exception& error) {
            QCOMPARE(SentenceOf(error), sentence);
        }
    }

    void OtherFailuresHaveTheirOwn() {
        QCOMPARE(SentenceOf(ks::CError("Größe?")), QString("Größe?"));
        QCOMPARE(SentenceOf(std::runtime_error("Why")), QString("Why"));
    }

    void ADamagedFileIsNamed() {
        QCOMPARE(FileDamaged("a.pdf"), QString("a.pdf could not be written completely, and the existing file with this "
                                               "name is damaged."));
    }
};

QTEST_GUILESS_MAIN(CWidgetMessagesTest)
#include "messages_test.moc"
