#include "messagemonitor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTime>
#include <QVBoxLayout>

MessageMonitor::MessageMonitor(QWidget* parent)
    : QWidget(parent)
    , m_text(new QPlainTextEdit)
{
    constexpr int drawDelayMs = 50;
    m_text->setReadOnly(true);
    m_text->setMaximumBlockCount(mostLines);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* title = new QLabel(QStringLiteral("MESSAGES"));
    title->setProperty("role", QStringLiteral("title"));
    auto* clear = new QPushButton(QStringLiteral("Clear"));
    auto* head = new QHBoxLayout;
    head->addWidget(title);
    head->addStretch();
    head->addWidget(clear);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(head);
    layout->addWidget(m_text, 1);
    m_drawTimer.setSingleShot(true);
    m_drawTimer.setInterval(drawDelayMs);
    connect(&m_drawTimer, SIGNAL(timeout()), this, SLOT(slotShowWaiting()));
    connect(clear, SIGNAL(clicked()), this, SLOT(slotClear()));
}

void MessageMonitor::slotAdd(const QString& line)
{
    m_waiting.append(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz  ")) + line);
    if (m_waiting.size() > mostLines)
        m_waiting.removeFirst();
    if (!m_drawTimer.isActive())
        m_drawTimer.start();
}

void MessageMonitor::slotShowWaiting()
{
    m_text->appendPlainText(m_waiting.join(u'\n'));
    m_waiting.clear();
}

void MessageMonitor::slotClear()
{
    m_waiting.clear();
    m_text->clear();
}
