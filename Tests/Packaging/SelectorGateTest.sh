#!/usr/bin/env bash
# The selector gate compares keyword names with the functions after them.
# shellcheck source=../Support/GateTree.sh
. "$(dirname "$0")/../Support/GateTree.sh"

# in_class SELECTOR DECLARATION...: a header with one class and one function in it.
in_class() {
    new_tree
    write Platform/Thing.h 'class Thing final : public Base {' 'public:' '    /// Does it.' \
        '    ///' "    /// Selector: $1" "${@:2}" '};'
}

# allows SELECTOR DECLARATION...
allows() {
    in_class "$@"
    expect_ok "$*"
}

# refuses FINDING SELECTOR DECLARATION...
refuses() {
    in_class "${@:2}"
    expect_finding "${*:2}" "Platform/Thing.h:5: $1"
}

allows 'length' '    [[nodiscard]] int length() const { return length_; }'
allows 'setName:' '    virtual void setName(std::string whatever);'
allows 'initWithData:' '    explicit Thing(Data data) : data_(data) {}'
allows 'initWithData:' '    static std::shared_ptr<Thing> initWithData(const std::optional<Data>& data);'
allows 'thingWithName:' '    explicit Thing(std::string name);'
allows 'copyWithZone:' '    std::shared_ptr<const Thing> copyWithZone() const;'
allows 'write:toPath:error:' '    bool write(const Data& data, const std::string& toPath,' \
    '               ErrorLocation error) override;'
allows 'walk:using:' '    void walk(Range range, const std::function<bool(Range, Range)>& using);'
allows 'at:effectiveRange:' '    int at(std::map<int, int> index, Range* effectiveRange = nullptr);'
allows 'at:options:' '    int at(int index, Options options = {});'
allows 'thing:didChangeFrom:toName:' \
    '    virtual void thingDidChangeFromToName(const Thing& thing, Name old, Name toName);'
allows 'type:conformsToType:' '    bool typeConformsToType(Name identifier, Name supertype);'

refuses 'read:into: stands at a function with 1 parameters' \
    'read:into:' '    bool read(const std::string& path);'
refuses 'length stands at a function with 1 parameters' 'length' '    int length(int unit);'
refuses 'length stands at a function named size' 'length' '    int size();'
refuses 'initWithData: stands at a function named make' \
    'initWithData:' '    static std::shared_ptr<Thing> make(Data data);'
refuses 'thing: stands at a function named Thing' 'thing:' '    explicit Thing(std::string name);'
refuses 'copyWithZone: stands at a function with 1 parameters' \
    'copyWithZone:' '    Thing copyWithZone(Zone zone) const;'
refuses 'setData: stands at a function named Thing' 'setData:' '    explicit Thing(Data data);'
refuses 'read:into: stands at a function whose parameter into is named "target"' \
    'read:into:' '    bool read(const std::string& path, std::vector<std::pair<int, int>>& target);'
refuses 'read:into: stands at a function whose parameter into is named ""' \
    'read:into:' '    bool read(const std::string& path, Target&);'
refuses 'read:into:from: stands at a function whose parameter from is named "into"' \
    'read:into:from:' '    bool readInto(int path, int from, int into);'
refuses 'length is not followed by a function' 'length' '' '    int length();'
refuses 'length is not followed by a function' 'length' '    /// More.' '    int length();'
refuses 'length is not followed by a function' 'length' '    int length;'
refuses 'no keyword name' 'not a name' '    int length();'
refuses 'no keyword name' 'a::b' '    int a(int a, int b);'

# A free function gets the object that is asked first.
new_tree
write Platform/Path.h '/// Selector: byAppending:' \
    'std::string byAppending(std::string_view path, std::string_view component);' '' \
    '/// Selector: components' 'std::vector<std::string> components(std::string_view path);'
expect_ok "free functions"

new_tree
write Platform/Path.h '/// Selector: components' 'std::vector<std::string> components();'
expect_finding "a free function without an object" "Path.h:1: components stands at a function with 0"

# Each class has its own names; in one class a name stands once.
new_tree
write Platform/Two.h 'class One {' '    /// Selector: open' '    void open();' '};' \
    'class Two {' '    struct Inner {' '        /// Selector: open' '        void open();' '    };' \
    '    /// Selector: open' '    void open();' '};'
expect_ok "the same name in several classes"

new_tree
write Platform/One.h 'class One {' '    /// Selector: open' '    void open();' \
    '    /// Selector: open' '    void open() const;' '};'
expect_finding "a name that stands twice in a class" "Platform/One.h:4: open is also at line 2"

finish
