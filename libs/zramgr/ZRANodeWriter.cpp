#include "ZRANodeWriter.h"

#include "ZRANode.h"
#include "ZRAWriter.h"
#include "zrassert.h"

bool CZRANodeWriter::SaveNode(const CZRANode* pNode, const char* pszFilename, bool bCompress, bool bAppend,
                              int* pError)
{
    ZRASSERT(pNode);
    ZRASSERT(pszFilename);
    if (pError != nullptr)
        *pError = 0;
    // The root is looked at before the file, so that a mistake does not cost what the file holds.
    if (pNode == nullptr || pszFilename == nullptr)
        return false;
    ZRASSERT(pNode->IsList());
    if (pNode->IsAtom())
        return false;
    CZRAWriter writer;
    const bool saved =
        writer.Open(pszFilename, bCompress, bAppend) && SaveNode(pNode, &writer) && writer.Close();
    if (pError != nullptr)
        *pError = writer.GetError();
    return saved;
}

bool CZRANodeWriter::SaveNode(const CZRANode* pNode, CZRAWriter* pWriter)
{
    ZRASSERT(pNode);
    ZRASSERT(pWriter);
    return pNode != nullptr && pWriter != nullptr && SaveNodeRecurse(pNode, *pWriter);
}

bool CZRANodeWriter::SaveNodeRecurse(const CZRANode* pNode, CZRAWriter& writer)
{
    ZRASSERT(pNode);
    if (pNode == nullptr)
        return false;
    ZRASSERT(pNode->IsList());
    if (pNode->IsAtom() || !writer.BeginNode())
        return false;
    for (std::uint32_t i = 0; i < pNode->GetNumElements(); ++i)
    {
        const CZRANode* const element = pNode->GetElement(i);
        const bool written = element != nullptr && element->IsAtom()
                                 ? writer.Write(element->GetValue(), element->IsQuoted())
                                 : SaveNodeRecurse(element, writer);
        if (!written)
            return false;
    }
    return writer.EndNode();
}
