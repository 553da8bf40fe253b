#include "testcase.h"

#include <QRegularExpression>

void TestCase::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^QObject::(dis)?connect")));
    prepare();
}
