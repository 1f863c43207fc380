// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"
#include "controller/joblistmodel.h"

#include <QtQml>

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

} // namespace quorvale
