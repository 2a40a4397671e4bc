-- Makes a manual page of a template: a pandoc filter.
--
-- A code block of the class "section" is replaced by what a document says below one of its
-- headings, a code block of the class "document" by a whole document:
--
--     ```{.section file="docs/manual.md" heading="Which port"}
--     ```
--
-- so that the page and the document cannot differ. Files are looked for where pandoc runs.

local function blocks_of(path)
  local file = assert(io.open(path), path .. " cannot be read")
  local text = file:read("a")
  file:close()
  return pandoc.read(text, "gfm").blocks
end

-- What is below the heading, up to the next one.
local function section(path, heading)
  local found, taken = false, pandoc.List()
  for _, block in ipairs(blocks_of(path)) do
    if block.t == "Header" then
      if found then break end
      found = pandoc.utils.stringify(block) == heading
    elseif found then
      taken:insert(block)
    end
  end
  assert(#taken > 0, path .. " has nothing below the heading " .. heading)
  return taken
end

local function include(block)
  local file, heading = block.attributes.file, block.attributes.heading
  if block.classes:includes("section") then return section(file, heading) end
  if block.classes:includes("document") then return blocks_of(file) end
end

-- A terminal is too narrow for a table: its first column becomes the term, the others what it means,
-- with their headings where there is more than one.
local function definitions(block)
  local source, list = pandoc.utils.to_simple_table(block), {}
  for _, row in ipairs(source.rows) do
    local meaning = pandoc.List()
    for column = 2, #row do
      local cell = pandoc.utils.blocks_to_inlines(row[column])
      if #row > 2 and #cell > 0 then
        cell:insert(1, pandoc.Str(pandoc.utils.stringify(source.headers[column]) .. ": "))
      end
      if #cell > 0 then meaning:insert(pandoc.Para(cell)) end
    end
    table.insert(list, { pandoc.utils.blocks_to_inlines(row[1]), { meaning } })
  end
  return pandoc.DefinitionList(list)
end

return {
  { CodeBlock = include },
  {
    Table = definitions,
    Image = function() return {} end,
    Link = function(link) return link.content end,
    Code = function(code) return pandoc.Strong(code.text) end,
  },
}
