#include "ShelfProgram.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace nookle::e2e {

ShelfProgram::ShelfProgram(PrivateSession& session, QString program)
    : m_session(session)
    , m_program(std::move(program))
{
}

void ShelfProgram::launch(const QStringList& arguments)
{
    m_process = m_session.start(m_program, arguments);
}

bool ShelfProgram::stop()
{
    return m_process->terminate() && m_process->waitForExit() == 0;
}

int ShelfProgram::startAgain(const QStringList& arguments)
{
    return m_session.start(m_program, arguments)->waitForExit();
}

bool ShelfProgram::hasEnded()
{
    return m_process->waitForExit() == 0;
}

QList<QJsonObject> ShelfProgram::savedItems() const
{
    QFile index(m_session.home(QStringLiteral("data/Nookle/index.json")));
    if (!index.open(QIODevice::ReadOnly))
        return {};
    QList<QJsonObject> items;
    const QJsonArray saved = QJsonDocument::fromJson(index.readAll()).object().value(QLatin1String("items")).toArray();
    for (const auto& item : saved)
        items.append(item.toObject());
    return items;
}

QStringList ShelfProgram::savedFileNames() const
{
    QStringList names;
    for (const QJsonObject& item : savedItems()) {
        const QJsonObject file =
            item.value(QLatin1String("content")).toObject().value(QLatin1String("file")).toObject();
        if (!file.isEmpty())
            names.append(file.value(QLatin1String("name")).toString());
    }
    return names;
}

} // namespace nookle::e2e
