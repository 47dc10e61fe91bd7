' What an engineer would write: a late-bound loop that asks FEMAP for one value at a time. Prints
' one line for each kind of work: its name, the values read, the seconds.
'
'   one_by_one.vbs ENTITIES     so many of each kind are read
Option Explicit

Dim femap, many, start, values
many = CInt(WScript.Arguments(0))
Set femap = CreateObject("femap.model")

Sub Begins
  values = 0
  start = Timer
End Sub

Sub Ended(work)
  WScript.Echo work & "|" & values & "|" & Replace(CStr(Timer - start), ",", ".")
End Sub

Sub ReadNodes
  Dim node, id, value
  Set node = femap.feNode
  For id = 1 To many
    If node.Get(id) = -1 Then
      value = node.x
      value = node.y
      value = node.z
      values = values + 3
    End If
  Next
End Sub

Sub ReadElements
  Dim element, id, place, value
  Set element = femap.feElem
  For id = 1 To many
    If element.Get(id) = -1 Then
      For place = 0 To 3
        value = element.node(place)
        values = values + 1
      Next
    End If
  Next
End Sub

Sub ReadProperties
  Dim prop, id, place, value
  Set prop = femap.feProp
  For id = 1 To many
    If prop.Get(id) = -1 Then
      For place = 0 To 7
        value = prop.pval(place)
        values = values + 1
      Next
    End If
  Next
End Sub

Sub ReadMaterials
  Dim material, id, value
  Set material = femap.feMatl
  For id = 1 To many
    If material.Get(id) = -1 Then
      value = material.Ex
      value = material.Ey
      value = material.Ez
      value = material.Gx
      value = material.Gy
      value = material.Gz
      value = material.Nuxy
      value = material.Nuyz
      value = material.Nuxz
      value = material.Density
      values = values + 10
    End If
  Next
End Sub

' Only a FEMAP before 2020.1 has vectors that a script can ask for one value.
Sub ReadVectors
  Dim vector, which, id, value
  Set vector = femap.feOutput
  vector.setID = 1
  For which = 1 To 10
    If vector.Get(which) = -1 Then
      For id = 1 To many \ 10
        value = vector.Value(id)
        values = values + 1
      Next
    End If
  Next
End Sub

Begins
ReadNodes
Ended "nodes"
Begins
ReadElements
Ended "elements"
Begins
ReadProperties
Ended "properties"
Begins
ReadMaterials
Ended "materials"
If femap.Info_Version < 20 Then
  Begins
  ReadVectors
  Ended "vectors"
End If
