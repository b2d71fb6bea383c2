// Writes whole trees as node text. Trees are only read and stay the caller's.
#pragma once

class CZRANode;
class CZRAWriter;

class CZRANodeWriter
{
public:
    // Writes the list `pNode` to a file of its own or behind what the file holds. The file name is UTF-8.
    // After a failure a new file may hold a part of the text; a compressed file that was appended to is as it
    // was. `pError`, when not null, gets the system's error number, 0 for a failure without one.
    [[nodiscard]] static bool SaveNode(const CZRANode* pNode, const char* pszFilename, bool bCompress,
                                       bool bAppend, int* pError = nullptr);
    // Writes the list `pNode` through an open writer, which stays open.
    [[nodiscard]] static bool SaveNode(const CZRANode* pNode, CZRAWriter* pWriter);

private:
    [[nodiscard]] static bool SaveNodeRecurse(const CZRANode* pNode, CZRAWriter& writer);
};
