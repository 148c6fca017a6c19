#pragma once

#include <string>
#include <string_view>

#include "qelvrml/parser/CVRMLNote.h"

class CVRMLParser;

namespace qelvrml {

/// Counts something that the model doesn't show, at the token that began at `place` of the text that is being read, or
/// at the current token.
void Note(CVRMLParser& parser, VRMLNoteTypes kind, std::string_view name, const char* place = nullptr) noexcept;
void NoteName(CVRMLParser& parser, VRMLNoteTypes kind, const CBasicString& name, const char* place = nullptr) noexcept;

/// As much of a name as a note shows: a longer one costs no more.
std::string NotedName(const CBasicString& name);

/// Counts the node at the current token. Nothing where text is passed over: it is read later, or isn't for the model.
void NoteNode(CVRMLParser& parser, VRMLNoteTypes kind);
/// The same for a node whose { is the current token, in a place where the node around it reads none.
void NoteMisplacedNode(CVRMLParser& parser);
/// The same for a node that was dispatched on, with the DEF name in front of it.
void NoteNodeAndName(CVRMLParser& parser, VRMLNoteTypes kind);

/// Notes, at the end of a load, that the file led to no node that makes an object.
void NoteNoGeometry(CVRMLParser& parser);

/// Whether all of the main file has been read.
bool IsAtEndOfScene(const CVRMLParser& parser);

/// What can be beyond a limit.
namespace limits {
inline constexpr std::string_view Nesting = "nodes inside one another";
inline constexpr std::string_view OpenScopes = "open scopes";
inline constexpr std::string_view Expansions = "prototypes inside one another";
inline constexpr std::string_view Subfiles = "files inside one another";
inline constexpr std::string_view Files = "files";
inline constexpr std::string_view FileName = "length of a file's name";
inline constexpr std::string_view MeshPoints = "points of a mesh";
inline constexpr std::string_view Pixels = "pixels of an image";
inline constexpr std::string_view Memory = "memory of the load";
inline constexpr std::string_view Time = "time of the load";
}  // namespace limits

}  // namespace qelvrml
