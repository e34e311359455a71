// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Objects/ManagedObjectID.h"

#include <QUrl>

#include <utility>

namespace quor::toolkit {

ManagedObjectID::ManagedObjectID(QString store, QString entityName, qint64 number, bool isTemporary)
    : store_(std::move(store))
    , entityName_(std::move(entityName))
    , number_(number)
    , isTemporary_(isTemporary)
{
}

QString ManagedObjectID::URIRepresentation() const
{
    if (entityName_.isEmpty())
        return {};
    const QString scheme = QStringLiteral("x-quor-store://");
    const QString entity = u'/' + QString::fromLatin1(QUrl::toPercentEncoding(entityName_)) + u'/';
    if (!isTemporary_)
        return scheme + store_ + entity + u'p' + QString::number(number_);
    // All numbers have the same length, so that the texts sort like the numbers.
    const QString digits = QString::number(number_).rightJustified(19, u'0');
    return scheme + entity + u't' + store_ + u'-' + digits;
}

} // namespace quor::toolkit
