#include "shell/check_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

namespace quillset {

namespace {

QString asText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonValue numberOrNull(std::size_t number) {
    return number == 0 ? QJsonValue() : QJsonValue(static_cast<qint64>(number));
}

} // namespace

std::string checkJson(const CheckReport& report) {
    QJsonArray findings;
    for (const SceneryFinding& finding : report.findings)
        findings.append(QJsonObject{{QStringLiteral("kind"), asText(findingName(finding.kind))},
                                    {QStringLiteral("row"), numberOrNull(finding.row)},
                                    {QStringLiteral("line"), numberOrNull(finding.line)},
                                    {QStringLiteral("what"), asText(finding.what)},
                                    {QStringLiteral("why"), asText(finding.why)}});
    const QJsonObject root{
        {QStringLiteral("file"), asText(report.file)},
        {QStringLiteral("problem"), report.problem.empty() ? QJsonValue() : asText(report.problem)},
        {QStringLiteral("findings"), findings}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented).toStdString();
}

} // namespace quillset
