#pragma once

namespace VxGUI {

/// One object a process, created on first use and destroyed at exit. Creation is thread-safe. Use it inside
/// one library only and export an accessor from there: each library that instantiates it has an object of its
/// own.
template <class T>
class VxSingleton
{
public:
    static T* Instance()
    {
        static T s_instance;
        return &s_instance;
    }
};

} // namespace VxGUI
