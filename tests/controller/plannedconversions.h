// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "referencequeue.h"
#include "support/filetree.h"
#include "support/scarcity.h"
#include "support/slowdisk.h"
#include "support/standintools.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>
#include <random>
#include <utility>

namespace quorvale::test {

using namespace Qt::StringLiterals;

using Random = std::mt19937;

inline int oneOf(Random &random, int count)
{
    return std::uniform_int_distribution<int>(0, count - 1)(random);
}

/// The conversions of a random sequence: what stand-in tools are to do in each, and what stands in
/// its way. One at a time, in programs that have tests/fakes/slowdisk.cpp and
/// tests/fakes/scarcity.cpp in them.
class PlannedConversions
{
public:
    PlannedConversions(Random &random, StandInTools &tools, SlowDisk &disk, bool withFaults)
        : m_tools(tools), m_disk(disk)
    {
        constexpr int mostConversions = 400; // more than any sequence comes to
        for (int i = 0; i < mostConversions; ++i)
            m_plans << randomPlan(random, withFaults);
        // Described by ffmpeg as by ffprobe.
        m_tools.setDescription(Script().err("Duration: 00:00:10.00\n").exit(1));
    }

    const QList<ConversionPlan> &plans() const { return m_plans; }

    // The one on the disk; what ails the disk is about it.
    QString outputFolder() const { return m_disk.path(outputs); }

    // Has the next one do as planned. What searches would lack as well, when there are some, is
    // left to it.
    void prepareNext(bool isSearched)
    {
        liftFaults();
        const ConversionPlan &plan = m_plans[m_prepared];
        const QByteArray &report = m_reports[m_prepared];
        ++m_prepared;
        m_tools.setScript(u"ffmpeg"_s, script(plan, report));
        setFault(plan.fault, isSearched);
    }
    // So many are.
    qsizetype prepared() const { return m_prepared; }

    // Whether the tool of this one stands still where it waits for end().
    bool isRunning(qsizetype number) const { return QFile::exists(mark(u"running"_s, number)); }

    // Lets the last one begin that stands still before, ...
    void begin()
    {
        liftFaults();
        write(mark(u"described"_s, m_prepared), {});
    }
    // ... or come to its end.
    void end() { write(mark(u"released"_s, m_prepared), {}); }

    void liftFaults()
    {
        m_threads.reset();
        m_descriptors.reset();
        m_isDiskHung = false;
        if (std::exchange(m_isDiskIll, false))
            silence(m_silent);
        if (!QFile::exists(m_tools.path(u"ffmpeg"_s)))
            m_tools.restoreTool(u"ffmpeg"_s);
    }

    // The folders on the disk that are not to answer, beside what a conversion is to wait for.
    void silence(const QStringList &folders)
    {
        m_silent = folders;
        m_disk.hang(m_silent + (m_isDiskHung ? QStringList{outputs} : QStringList()));
    }

private:
    ConversionPlan randomPlan(Random &random, bool withFaults)
    {
        ConversionPlan plan;
        plan.progress = oneOf(random, 12) / 10.0; // more than the whole is the whole
        plan.atInterrupt = ConversionPlan::AtInterrupt{oneOf(random, 4)};
        const int end = oneOf(random, 8);
        plan.atEnd = end == 0  ? ConversionPlan::AtEnd::crashes
                     : end < 3 ? ConversionPlan::AtEnd::fails
                               : ConversionPlan::AtEnd::succeeds;
        if (withFaults)
            plan.fault = randomFault(random);
        m_reports << QByteArray::number(qRound64(plan.progress * 10'000'000));
        plan.progress = std::min(m_reports.last().toDouble() / 1'000'000.0 / 10.0, 1.0);
        return plan;
    }

    static ConversionPlan::Fault randomFault(Random &random)
    {
        using enum ConversionPlan::Fault;
        // The first two take long when they are cancelled.
        const int kind = oneOf(random, 400);
        return kind < 1     ? hungProbe
               : kind < 25  ? hungDisk
               : kind < 50  ? slowProbe
               : kind < 75  ? noDescription
               : kind < 100 ? noTool
               : kind < 125 ? brokenDisk
               : kind < 170 ? fewThreads
               : kind < 240 ? fewDescriptors
                            : none;
    }

    QString mark(const QString &name, qsizetype number) const
    {
        return m_tools.path(u"%1.%2"_s.arg(name).arg(number));
    }

    Script script(const ConversionPlan &plan, const QByteArray &report) const
    {
        Script script;
        if (plan.atInterrupt == ConversionPlan::AtInterrupt::ignoresIt)
            script.ignoreInterrupt();
        else if (plan.atInterrupt == ConversionPlan::AtInterrupt::fails)
            script.catchInterrupt(255);
        else if (plan.atInterrupt == ConversionPlan::AtInterrupt::succeeds)
            script.catchInterrupt(0);
        script.out("out_time_ms=" + report + '\n');
        script.touch(mark(u"running"_s, m_prepared)).await(mark(u"released"_s, m_prepared));
        if (plan.atEnd == ConversionPlan::AtEnd::fails)
            script.err("no\n").exit(1);
        else if (plan.atEnd == ConversionPlan::AtEnd::crashes)
            script.die(SIGKILL);
        return script;
    }

    void setFault(ConversionPlan::Fault fault, bool isSearched)
    {
        Script description;
        switch (fault) {
        case ConversionPlan::Fault::none:
        case ConversionPlan::Fault::fewDescriptors: // to be taken when all else is prepared
            break;
        case ConversionPlan::Fault::slowProbe:
            description.wait(20);
            break;
        case ConversionPlan::Fault::noDescription:
            description.exit(1);
            break;
        case ConversionPlan::Fault::hungProbe:
            description.await(mark(u"described"_s, m_prepared));
            break;
        case ConversionPlan::Fault::hungDisk:
            m_isDiskIll = true;
            m_isDiskHung = true;
            silence(m_silent);
            break;
        case ConversionPlan::Fault::noTool:
            m_tools.removeTool(u"ffmpeg"_s);
            break;
        case ConversionPlan::Fault::brokenDisk:
            if (!isSearched) {
                m_isDiskIll = true;
                m_disk.fail(EIO, m_prepared % 2 == 0 ? "stat" : "mkdir", {outputs});
            }
            break;
        case ConversionPlan::Fault::fewThreads:
            m_threads.emplace(static_cast<int>(m_prepared % 2));
            break;
        }
        m_tools.setScript(u"ffprobe"_s, StandInTools::describing(description));
        if (fault == ConversionPlan::Fault::fewDescriptors && !isSearched)
            m_descriptors.emplace(static_cast<int>(m_prepared % 24));
    }

    static inline const auto outputs = u"outputs"_s; // on the disk

    StandInTools &m_tools;
    SlowDisk &m_disk;
    QList<ConversionPlan> m_plans;
    QByteArrayList m_reports; // the microseconds that each reports
    qsizetype m_prepared = 0;
    QStringList m_silent;     // folders
    bool m_isDiskIll = false; // for a conversion, and so that it stands still:
    bool m_isDiskHung = false;
    std::optional<FewThreads> m_threads;
    std::optional<FewDescriptors> m_descriptors;
};

} // namespace quorvale::test
