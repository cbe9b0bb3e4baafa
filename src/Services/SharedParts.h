#pragma once

#include "Record.h"

#include <QList>
#include <QString>

#include <algorithm>

namespace quenara {

// sharePartsWith(value, like) lets the parts of \a value that equal those of \a like share their
// storage: of records made alike, one after the other, only what differs takes memory.

template<class T>
void sharePartsWith(T & /*value*/, const T & /*like*/)
{}

inline void sharePartsWith(QString &value, const QString &like)
{
    if (value == like)
        value = like;
}

template<class T>
void sharePartsWith(SharedOptional<T> &value, const SharedOptional<T> &like)
{
    if (value == like)
        value = like;
}

template<Record T>
void sharePartsWith(T &value, const T &like);

template<Record T>
void sharePartsWith(QList<T> &values, const QList<T> &like)
{
    if (values.constData() == like.constData())
        return;
    const qsizetype count = std::min(values.size(), like.size());
    for (qsizetype i = 0; i < count; ++i)
        sharePartsWith(values[i], like.at(i));
}

template<Record T>
void sharePartsWith(T &value, const T &like)
{
    forEachField<T>([&](const auto &f) { sharePartsWith(value.*f.member, like.*f.member); });
}

} // namespace quenara
