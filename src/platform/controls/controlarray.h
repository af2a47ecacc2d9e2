// Controls with one name and an index. Elements are loaded and unloaded at run time. The array's maker does everything
// an element needs, also its wiring.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QWidget>

#include <functional>
#include <map>

template <typename Control>
class ControlArray
{
public:
    using Maker = std::function<Control*(int index)>; // makes a hidden element, owned by its Qt parent

    ControlArray() = default;
    ControlArray(const QString& name, Maker maker) : m_name(name), m_maker(std::move(maker)) {}

    // AlreadyLoaded if it exists. Its object name is name(index).
    Control& Load(int index)
    {
        if (Exists(index)) throw RunTimeError{errors::AlreadyLoaded, u"Object already loaded"_s};
        Control* control = m_maker(index);
        control->setObjectName(u"%1(%2)"_s.arg(m_name).arg(index));
        m_elements[index] = control;
        return *control;
    }

    void Unload(int index) // NoSuchElement
    {
        Control& control = (*this)(index);
        m_elements.erase(index);
        control.hide();
        control.setObjectName({});
        control.deleteLater(); // it may be handling an event
    }

    Control& operator()(int index) const // NoSuchElement
    {
        const auto found = m_elements.find(index);
        if (found == m_elements.end()) {
            throw RunTimeError{errors::NoSuchElement, u"Control array element '%1' doesn't exist"_s.arg(index)};
        }
        return *found->second;
    }

    bool Exists(int index) const { return m_elements.contains(index); }

private:
    QString m_name;
    Maker m_maker;
    std::map<int, Control*> m_elements;
};
