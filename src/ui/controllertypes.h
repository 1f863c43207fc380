// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"
#include "controller/failurenotice.h"
#include "controller/joblistmodel.h"
#include "controller/searchqueue.h"
#include "controller/shownjob.h"

#include <QtQml/qqml.h>

// The controller's types as QML sees them. Declared here so that the controller knows no QML.

namespace quorvale {

struct ConverterViewModelType
{
    Q_GADGET
    QML_FOREIGN(quorvale::ConverterViewModel)
    QML_NAMED_ELEMENT(ConverterViewModel)
    QML_UNCREATABLE("The application creates the only one.")
};

struct JobListModelType
{
    Q_GADGET
    QML_FOREIGN(quorvale::JobListModel)
    QML_NAMED_ELEMENT(JobListModel)
    QML_UNCREATABLE("It belongs to the controller.")
};

struct SearchQueueType
{
    Q_GADGET
    QML_FOREIGN(quorvale::SearchQueue)
    QML_NAMED_ELEMENT(SearchQueue)
    QML_UNCREATABLE("It belongs to the controller.")
};

struct FailureNoticeType
{
    Q_GADGET
    QML_FOREIGN(quorvale::FailureNotice)
    QML_NAMED_ELEMENT(FailureNotice)
    QML_UNCREATABLE("It belongs to the controller.")
};

// The identity of a job, which QML only passes on.
struct JobIdType
{
    Q_GADGET
    QML_FOREIGN(QUuid)
    QML_ANONYMOUS
};

struct ShownJobType
{
    Q_GADGET
    QML_FOREIGN(quorvale::ShownJob)
    QML_VALUE_TYPE(shownJob)
};

} // namespace quorvale
