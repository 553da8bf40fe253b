#pragma once

#include <QObject>
#include <QTest>

// The base of every test class: a string connection that Qt could not make, which it only warns of,
// fails the test in which it happens.
class TestCase : public QObject
{
    Q_OBJECT

private slots:
    void init();

protected:
    // What a test class does before each test function.
    virtual void prepare() { }
};
