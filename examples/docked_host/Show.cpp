// SPDX-License-Identifier: MIT
#include "Show.h"

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineState.h>

#include <cmath>
#include <sstream>
#include <utility>

namespace {

constexpr int channelsInGroup = 10;

std::string keyOf(const Show::Channel& channel)
{
    return (channel.group + QLatin1Char('.') + channel.name).toStdString();
}

} // namespace

Show::Channel::~Channel()
{
    delete formula;
}

std::shared_ptr<const CurveSnapshot> Show::Channel::snapshot(const CurveVariables& variables) const
{
    if (formula)
        return CurveSnapshot::of(*formula, fps, variables);
    return last_ = CurveSnapshot::of(spline, last_);
}

Show::Show() : cues_{{0.0, "Doors"}, {12.0, "Overture"}, {31.0, "Storm"}, {52.0, "Finale"}}
{
    const std::pair<const char*, QColor> groups[] = {{"Front", QColor(240, 190, 60)},
                                                     {"Back", QColor(90, 150, 250)},
                                                     {"Side", QColor(230, 90, 90)},
                                                     {"House", QColor(130, 190, 130)}};
    for (const auto& [group, color] : groups) {
        for (int number = 1; number <= channelsInGroup; ++number)
            addChannel(QLatin1String(group), number, color.lighter(80 + 5 * number));
    }
}

/// Another level at each cue.
void Show::addChannel(const QString& group, int number, const QColor& color)
{
    auto channel = std::make_unique<Channel>();
    channel->group = group;
    channel->name = QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    channel->color = color;
    channel->isLocked = group == QLatin1String("House");
    channel->spline.setPos(channel->spline.modify(0u), channel->isLocked ? 20.0 : 0.0);
    for (std::size_t i = 1; i < cues_.size() && !channel->isLocked; ++i)
        channel->spline.addPoint(
            cues_[i].time,
            std::fmod(37.0 * double(number) + 29.0 * double(i * channels_.size()) + 43.0 * double(i), 101.0));
    for (unsigned i = 0; i < channel->spline.getControlPointsNumber(); ++i)
        channel->spline.modify(i)->type = SplineBase::Linear;
    variables_.add(keyOf(*channel), &channel->spline, &channel->formula);
    channels_.push_back(std::move(channel));
}

Show::Channel* Show::find(const QString& group, const QString& name) const
{
    for (const auto& channel : channels_) {
        if (channel->group == group && channel->name == name)
            return channel.get();
    }
    return nullptr;
}

std::vector<std::shared_ptr<const CurveSnapshot>> Show::snapshots() const
{
    std::vector<std::shared_ptr<const CurveSnapshot>> all;
    for (const auto& channel : channels_)
        all.push_back(channel->snapshot(variables_));
    return all;
}

QJsonObject Show::write() const
{
    QJsonObject curves;
    for (const auto& channel : channels_) {
        std::ostringstream out;
        CurveFile::writeColor(out, {channel->color.red(), channel->color.green(), channel->color.blue()});
        if (channel->formula)
            CurveFile::writeExpression(out, channel->formula->getString());
        else
            CurveFile::writeSpline(out, channel->spline);
        curves[QString::fromStdString(keyOf(*channel))] = QString::fromStdString(out.str());
    }
    return curves;
}

void Show::read(const QJsonObject& curves)
{
    for (const auto& channel : channels_) {
        std::istringstream in(curves[QString::fromStdString(keyOf(*channel))].toString().toStdString());
        CurveFile file;
        if (!file.read(in))
            continue;
        FunctionFloatBase* formula = nullptr;
        ParseMessage message;
        if (file.kind == CurveFile::Expression)
            formula = FunctionParserBase::instance()->parseString(file.expression, message, &variables_);
        if (file.kind == CurveFile::Expression && !formula)
            continue;
        channel->color = QColor(file.color.red, file.color.green, file.color.blue);
        delete std::exchange(channel->formula, formula);
        if (!formula)
            channel->spline.assign(file.spline.state());
    }
}
