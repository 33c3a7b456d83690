-- The language server in a real editor: Neovim, headless, opens the sample
-- tuning file with `ovela-tune lsp` attached and checks what an engineer
-- sees: the findings of `ovela-tune check`, a new finding while typing, a
-- hover, completions, a jump from an include to its preset, and a
-- formatting that gives the same arrays. Run by CTest with OVELA_TUNE (the
-- tool) and OVELA_SAMPLE (the file) in the environment; exits non-zero on
-- the first failure.
local tune = assert(vim.env.OVELA_TUNE, 'OVELA_TUNE is not set')
local sample = assert(vim.env.OVELA_SAMPLE, 'OVELA_SAMPLE is not set')
local kTimeout = 10000

local function fail(what)
  error(what, 0)
end

local function expect(condition, what)
  if not condition then
    fail(what)
  end
end

local function codeOf(diagnostic)
  if diagnostic.code then
    return diagnostic.code
  end
  local lsp = diagnostic.user_data and diagnostic.user_data.lsp
  return lsp and lsp.code
end

-- A finding as "rule line:column", 1-based; a finding about the whole file
-- (line and column 0) counts as the start of the file.
local function key(rule, line, column)
  return string.format('%s %d:%d', rule, math.max(line, 1), math.max(column, 1))
end

local function request(buffer, method, params)
  local answers, err = vim.lsp.buf_request_sync(buffer, method, params, kTimeout)
  expect(answers ~= nil, method .. ' got no answer: ' .. tostring(err))
  for _, answer in pairs(answers) do
    expect(answer.error == nil, method .. ' failed: ' .. vim.inspect(answer.error))
    return answer.result
  end
  fail(method .. ' got no answer')
end

local function rowOf(buffer, text)
  for row, line in ipairs(vim.api.nvim_buf_get_lines(buffer, 0, -1, false)) do
    local column = line:find(text, 1, true)
    if column then
      return row - 1, column - 1
    end
  end
  fail('the sample has no ' .. text)
end

local function at(buffer, row, column)
  return {
    textDocument = { uri = vim.uri_from_bufnr(buffer) },
    position = { line = row, character = column },
  }
end

local function labels(result)
  local found = {}
  for _, item in ipairs(result.items or result) do
    found[item.label] = true
  end
  return found
end

-- What the effect receives from `text`, as `ovela-tune dump` prints it,
-- without the line that names the file.
local function dumpOf(text)
  local path = vim.fn.tempname() .. '.xml'
  vim.fn.writefile(vim.split(text, '\n', true), path, 'b')
  local out = vim.fn.system({ tune, 'dump', path })
  expect(vim.v.shell_error == 0, 'dump failed: ' .. out)
  os.remove(path)
  return out:gsub('^[^\n]*\n', '')
end

local function run()
  vim.cmd('edit ' .. vim.fn.fnameescape(sample))
  local buffer = vim.api.nvim_get_current_buf()
  local original = table.concat(vim.api.nvim_buf_get_lines(buffer, 0, -1, false), '\n') .. '\n'
  local client = vim.lsp.start_client({ name = 'ovela-tune', cmd = { tune, 'lsp' } })
  expect(client ~= nil, 'ovela-tune lsp did not start')
  vim.lsp.buf_attach_client(buffer, client)

  -- The findings of check, as the editor shows them.
  local report = vim.fn.json_decode(
    vim.fn.system({ tune, 'check', '--format=json', '--severity=note', sample }))
  local expected = {}
  for _, finding in ipairs(report.findings) do
    table.insert(expected, key(finding.rule, finding.line, finding.column))
  end
  table.sort(expected)
  expect(#expected > 0, 'check found nothing in the sample')
  local shown
  vim.wait(kTimeout, function()
    shown = {}
    for _, diagnostic in ipairs(vim.diagnostic.get(buffer)) do
      table.insert(shown, key(codeOf(diagnostic), diagnostic.lnum + 1, diagnostic.col + 1))
    end
    table.sort(shown)
    return #shown == #expected
  end, 20)
  expect(table.concat(shown, '\n') == table.concat(expected, '\n'),
    'the editor shows\n' .. table.concat(shown, '\n') .. '\ncheck finds\n' .. table.concat(expected, '\n'))

  -- A typo while typing, unsaved, shows at once, and goes with its fix.
  local row, column = rowOf(buffer, '<ieq-amount value')
  vim.api.nvim_buf_set_text(buffer, row, column + 1, row, column + 11, { 'ieq-amout' })
  local function typoShown()
    for _, diagnostic in ipairs(vim.diagnostic.get(buffer)) do
      if codeOf(diagnostic) == 'unknown-element' and diagnostic.lnum == row then
        return true
      end
    end
    return false
  end
  expect(vim.wait(kTimeout, typoShown, 20), 'the typo at line ' .. (row + 1) .. ' is not shown')
  vim.api.nvim_buf_set_text(buffer, row, column + 1, row, column + 10, { 'ieq-amount' })
  expect(vim.wait(kTimeout, function() return not typoShown() end, 20), 'the fixed typo stays')

  -- Hover: the code and the values that the effect receives.
  row, column = rowOf(buffer, '<bass-enhancer-boost value="192"/>')
  local hover = request(buffer, 'textDocument/hover', at(buffer, row, column + 3))
  local text = hover and hover.contents and hover.contents.value or ''
  expect(text:find('`beb`', 1, true) and text:find('tuning speaker, device speaker, `beb`: 192', 1, true),
    'hover says ' .. text)

  -- Completion: endpoint names in an endpoint section's id, and the
  -- elements of a profile's settings after '<'.
  row, column = rowOf(buffer, '<endpoint_type id="speaker"')
  local names = labels(request(buffer, 'textDocument/completion', at(buffer, row, column + 19)))
  expect(names.headphone and names.bluetooth and names.remote_submix, 'no endpoint names completed')
  row, column = rowOf(buffer, '<ieq-amount value')
  names = labels(request(buffer, 'textDocument/completion', at(buffer, row, column + 1)))
  expect(names['ieq-amount'] and names['endpoint_type'] and not names['band_ieq'],
    'the elements of a profile\'s settings are not completed: ' .. vim.inspect(names))

  -- Definition: from an include to the preset that it reads as.
  row, column = rowOf(buffer, '<include preset="')
  local id = vim.api.nvim_buf_get_lines(buffer, row, row + 1, false)[1]:match('preset="([^"]*)"')
  local presetRow = rowOf(buffer, '<preset type="ieq" id="' .. id .. '"')
  local locations = request(buffer, 'textDocument/definition', at(buffer, row, column + 3))
  expect(locations and #locations == 1 and locations[1].range.start.line == presetRow,
    'the include at line ' .. (row + 1) .. ' leads to ' .. vim.inspect(locations))

  -- Formatting: a text indented anyhow comes back as the sample, and gives
  -- the effect what the sample gives.
  local lines = vim.api.nvim_buf_get_lines(buffer, 0, -1, false)
  for i = 2, #lines, 2 do
    lines[i] = lines[i]:gsub('^%s+', '  ')
  end
  vim.api.nvim_buf_set_lines(buffer, 0, -1, false, lines)
  local edits = request(buffer, 'textDocument/formatting', {
    textDocument = { uri = vim.uri_from_bufnr(buffer) },
    options = { tabSize = 4, insertSpaces = true },
  })
  expect(edits and #edits > 0, 'formatting gave no edits')
  vim.lsp.util.apply_text_edits(edits, buffer, 'utf-16')
  local formatted = table.concat(vim.api.nvim_buf_get_lines(buffer, 0, -1, false), '\n') .. '\n'
  expect(formatted == original, 'the formatted text is not the sample')
  expect(dumpOf(formatted) == dumpOf(original), 'formatting changed an array')

  vim.lsp.stop_client(client)
end

local ok, err = pcall(run)
if not ok then
  io.stderr:write('FAIL: ' .. tostring(err) .. '\n')
  vim.cmd('cquit 1')
end
io.stdout:write('the language server works in Neovim\n')
vim.cmd('qall!')
