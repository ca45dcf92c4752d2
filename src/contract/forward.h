/// @file
/// The names of the interfaces, for headers that only pass them on, and what holds for all of them. A host's first
/// object comes from library.h; the way on begins in module.h.
///
/// **Objects and facets.** An object shows itself through several interfaces: Gui for user interfaces (texts, limits,
/// edit hints), Spec for the driver engine (raw values, comparison, device images), others for its parent or its
/// scripts. `Gui`, `Spec` and `Base` answer the same object in another view; `facet<I>(object)` asks for any facet.
///
/// **Binary contract.** The virtual functions of an interface stand in the order of its slots, behind those of
/// IUnknown and IDispatch. None is ever moved, renamed or taken away. `get_x`, `let_x` and `set_x` are the three forms
/// of the property `x`; by name every operation is reached without regard to case.
///
/// **Ownership.** A result is the caller's, held by its Ref. A pointer argument is borrowed for the call; nullptr is
/// Nothing. Children hold their parents, so a tree ends with CBase_Module::Unload and not with its last reference.
///
/// **Thread.** All calls come on one thread, the host's. Events are told before the operation that caused them
/// returns, and a listener may call anything; nothing is locked.
///
/// **Errors.** A RuntimeError is the one exception. Operations raise it only where they say so: otherwise a failure is
/// logged and answered by False, Empty, "" or Nothing. A failing rule of the descriptor never reaches a caller, and
/// nothing is rolled back.
///
/// **Kinds.** An optional `kind` is a mask of eParameterKind that limits the operation to the parameters of these
/// kinds; left out it means all kinds.
///
/// **Ids.** An `id` is the value that the descriptor holds. Collections use its text form as key.
///
/// **Texts.** Names and descriptions come in the module's language at the time of the call; a change of language
/// reloads nothing. A missing text is "".
///
/// **Laziness.** A module builds its channels, a channel its groups, a group its parameters when they are first
/// needed; the operations that do so say that they load. Loading happens once: after a failure what was built stays
/// and counts as all there is. `modified`, `unknown`, `ClearModified` and `SetUnknown` never load, since what was not
/// built cannot have changed.
#pragma once

#include "contract/collections.h"

namespace ov {

class Database;
class ICollection;

class CBase_Module;
class CBase_Unload;
class CBase_Station;
class IBase_GuiStation;
class IBase_SpecStation;
class CBase_Channel;
class IBase_ScriptingChannel;
class CBase_Group;
class IBase_ScriptingGroup;
class IBase_SpecParameterStorage;
class IBase_Internal;
class CBase_ParamDependency;
class IBase_CallbackParameter;
class IBase_CallbackModule;
class IBase_CallbackStation;
class ISpec_ImExport;
class CBase_Environment;
class CBase_ScriptingParameters;
class CBase_ScriptingGroups;
class CBase_ScriptingChannels;
class CBase_ScriptingTexts;

}  // namespace ov
